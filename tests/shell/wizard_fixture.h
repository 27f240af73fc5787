#pragma once

#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/robot.h"
#include "tests/support/wizard_files.h"
#include "wizard/shell/step_states.h"

namespace krt550 {

inline constexpr int kStart = 158;
inline constexpr int kView = 170;
inline constexpr int kCancel = 91;
inline constexpr int kHelp = 93;
inline constexpr int kNext = 95;
inline constexpr int kBack = 96;
inline constexpr int kApply = 98;
inline constexpr int kReset = 99;

/// A name plate drive and the whole wizard on it.
class WizardFixture : public testing::Test {
protected:
    WizardFixture() : m_drive(NamePlateParameters()) {
        static const WizardFiles files("UPDATE\t1\t5\nTOOLTIP\t9902\tVoltage of the name plate\n");
        m_drive.wizardPath = files.WizardPath();
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
    MessageBoxes m_boxes;
};

} // namespace krt550
