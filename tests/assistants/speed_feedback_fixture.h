#pragma once

#include "tests/assistants/feedback_drive.h"
#include "tests/assistants/tuning_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

namespace krt550 {

inline constexpr int kBoxOfStep5 = 167;

/// The page of step 5 in front, on a drive that finds its feedback.
class SpeedFeedbackFixture : public TuningFixture<FeedbackDrive> {
protected:
    SpeedFeedbackFixture() : TuningFixture("GAINADJUP\t8827\t0.5\n") { SetStepState(5, StepState::NotChosen); }

    void OnPage(const std::function<void()>& script) {
        TuningFixture::OnPage(kBoxOfStep5, [&] {
            m_drive.TakeLog();
            script();
        });
    }

    /// Without the speeds that the page keeps showing.
    static QStringList WithoutSpeeds(QStringList calls) {
        for (const char* shown : {"read 218", "read 102", "read 103", "read 105"})
            calls.removeAll(QString::fromLatin1(shown));
        return calls;
    }
    /// The calls since the last time, without them.
    QStringList Calls() { return WithoutSpeeds(m_drive.TakeLog()); }

    void ExpectSafe() {
        EXPECT_FALSE(m_drive.localControl);
        EXPECT_EQ(m_drive.statusWord, kStatusStopped);
    }
    static bool IsDone() { return GetStepState(5) == StepState::Done; }
    static bool Enabled(quint16 reg) { return Robot::IsEnabled(ValueId(reg)); }
};

} // namespace krt550
