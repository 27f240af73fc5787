#pragma once

#include "hostlib/tolvbo32/clock.h"
#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/robot.h"
#include "tests/support/wizard_files.h"
#include "wizard/shell/step_states.h"
#include "wizard/texts/wizard_directory.h"

namespace krt550 {

inline constexpr int kStart = 158;
inline constexpr int kView = 170;
inline constexpr int kCancel = 91;
inline constexpr int kHelp = 93;
inline constexpr int kNext = 95;
inline constexpr int kBack = 96;
inline constexpr int kApply = 98;
inline constexpr int kReset = 99;

/// Texts that the tests of pages count on.
inline const WizardFiles& PageFiles() {
    static const WizardFiles files(
        "UPDATE\t1\t5\nUPDATE\t3\t5\nUPDATE\t5\t50\nTOOLTIP\t9902\tVoltage of the name plate\n"
        "ENABLESTART\t3\t9912\t1,\"2\",,3\nENABLESTART\t7\t4401\t1\n"
        "SLIDERVAL\t4\t2306\t200\n",
        "NAME\tPage of the file\n");
    return files;
}

/// A name plate drive and the whole wizard on it.
class WizardFixture : public testing::Test {
protected:
    WizardFixture() : m_drive(WizardParameters()) {
        m_drive.wizardPath = PageFiles().WizardPath();
        SetWizardDirectory(PageFiles().Directory());
        EnsureStepStates();
        for (int step = 1; step <= kStepCount; ++step)
            SetStepState(step, StepState::NotChosen);
    }

    int Run(const std::function<void()>& script) { return RunWizardWith(m_drive, script); }

    static QString Digits() {
        QString digits;
        for (int step = 1; step <= kStepCount; ++step)
            digits += QString::number(int(GetStepState(step)));
        return digits;
    }

    FakeDrive m_drive;
    CSteppedClock m_clock; // or a busy machine would come to the cyclic update
    ClockScope m_clockScope{m_clock};
    MessageBoxes m_boxes;
};

} // namespace krt550
