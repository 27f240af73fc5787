#pragma once

#include "tests/assistants/tuning_drive.h"
#include "tests/shell/wizard_fixture.h"

#include "hostlib/tolvbo32/clock.h"

namespace krt550 {

/// The wizard on a drive of one's own, on a stepped clock.
template <class Drive> class TuningFixture : public testing::Test {
protected:
    explicit TuningFixture(const QString& wizardPath) {
        m_drive.wizardPath = wizardPath;
        EnsureStepStates();
    }
    /// With these texts alone: without update periods only what is asserted talks to the drive.
    explicit TuningFixture(const char* texts) : TuningFixture(FilesOf(texts).WizardPath()) {}

    /// Opens the page of a check box as the only one of a chain and runs the script on it. The log begins with the
    /// page.
    void OnPage(int box, const std::function<void()>& script) {
        RunWizardWith(m_drive, [&] {
            if (!Robot::Find(box))
                Robot::Press(kView);
            m_drive.TakeLog();
            Robot::Press(box);
            Robot::Press(kNext);
            Robot::Drain();
            script();
        });
    }

    CSteppedClock m_clock;
    ClockScope m_clockScope{m_clock};
    Drive m_drive;
    MessageBoxes m_boxes;

private:
    static const WizardFiles& FilesOf(const char* texts) {
        static const WizardFiles files(texts);
        return files;
    }
};

} // namespace krt550
