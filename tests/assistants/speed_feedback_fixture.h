#pragma once

#include "tests/assistants/feedback_drive.h"
#include "tests/shell/wizard_fixture.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

namespace krt550 {

inline constexpr int kBoxOfStep5 = 167;

/// The page of step 5 in front, on a drive that finds its feedback.
class SpeedFeedbackFixture : public testing::Test {
protected:
    SpeedFeedbackFixture() {
        // No update periods: only what is pressed talks to the drive.
        static const WizardFiles files("GAINADJUP\t8827\t0.5\n");
        m_drive.wizardPath = files.WizardPath();
        EnsureStepStates();
        SetStepState(5, StepState::NotChosen);
    }

    void OnPage(const std::function<void()>& script) {
        RunWizardWith(m_drive, [&] {
            Robot::Press(kBoxOfStep5);
            Robot::Press(kNext);
            Robot::Drain();
            m_drive.TakeLog();
            script();
        });
    }

    /// The calls since the last time, without the speeds that the page keeps showing.
    QStringList Calls() {
        QStringList calls = m_drive.TakeLog();
        for (const char* shown : {"read 218", "read 102", "read 103", "read 105"})
            calls.removeAll(QString::fromLatin1(shown));
        return calls;
    }

    void ExpectSafe() {
        EXPECT_FALSE(m_drive.localControl);
        EXPECT_EQ(m_drive.statusWord, kStatusStopped);
    }
    static bool IsDone() { return GetStepState(5) == StepState::Done; }
    static bool Enabled(quint16 reg) { return Robot::IsEnabled(ValueId(reg)); }

    CSteppedClock m_clock;
    ClockScope m_clockScope{m_clock};
    FeedbackDrive m_drive;
    MessageBoxes m_boxes;
};

} // namespace krt550
