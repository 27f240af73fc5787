#pragma once

#include "hostlib/tolvbo32/clock.h"
#include "tests/shell/wizard_fixture.h"
#include "tests/support/shipped_drive.h"

namespace krt550 {

/// The specific assistants with the drive's parameters and the text files as they are shipped.
class SpecialFixture : public testing::Test {
protected:
    SpecialFixture() { SetWizardDirectory(QStringLiteral(KRT550_SOURCE_DIR "/data")); }

    /// Runs the script on a drive, with the page of this check box of the start page in front.
    void OnPage(int box, const std::function<void()>& script, const std::set<quint16>& missing = {}) {
        MakeDrive(missing);
        RunWizardWith(*m_drive, [&] {
            Robot::Press(kView);
            Robot::Press(box);
            Robot::Press(kNext);
            script();
        });
    }
    void MakeDrive(const std::set<quint16>& missing = {}) {
        std::vector<ParameterDescription> parameters = ShippedParameters(missing);
        for (ParameterDescription& parameter : parameters)
            if (const auto name = m_names.find(parameter.reg); name != m_names.end())
                parameter.name = name->second;
        m_drive = std::make_unique<FakeDrive>(std::move(parameters));
        m_drive->wizardPath = QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550Wizard.so");
        if (m_prepare)
            m_prepare(*m_drive);
    }
    /// Leaves the page and comes back.
    static void Reenter() {
        Robot::Press(kBack);
        Robot::Press(kNext);
    }
    /// Lets a bit more than one update of the page pass.
    static void LetAnUpdatePass() { Robot::LetPass(1100); }

    CSteppedClock m_clock;
    ClockScope m_clockScope{m_clock};
    std::function<void(FakeDrive&)> m_prepare;
    std::map<quint16, QString> m_names; ///< that the drive gives its parameters in place of the shipped ones
    std::unique_ptr<FakeDrive> m_drive;
    MessageBoxes m_boxes;
};

} // namespace krt550
