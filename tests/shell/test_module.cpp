// The module as a host meets it.
#include "tests/shell/wizard_fixture.h"

#include "wizard/page_factory.h"
#include "wizard/resources/module_resources.h"
#include "wizard/run_wizard.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_property_page.h"
#include "wizard/texts/wizard_directory.h"

namespace krt550 {
namespace {

using Module = WizardFixture;

TEST_F(Module, ExportsRunWizardAndNothingElse) {
    QProcess nm;
    nm.start("nm", {"-D", "-g", "--defined-only", KRT550_MODULE});
    ASSERT_TRUE(nm.waitForFinished());
    ASSERT_EQ(nm.exitCode(), 0) << nm.readAllStandardError().toStdString();
    QStringList symbols;
    for (const QString& line : QString::fromLatin1(nm.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts))
        symbols.append(line.section(' ', -1));
    EXPECT_EQ(symbols, QStringList{"RunWizard"});
}

TEST_F(Module, RefusesANullDrive) {
    EXPECT_EQ(RunWizard(nullptr), 2);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(Module, TakesTheWizardDirectoryFromTheHostsPath) {
    SetWizardDirectory({});
    struct {
        QString path;
        bool hasInfo;
        QString directory;
    } const cases[] = {
        {"wizard.dll", true, ""}, // no separator: as it was
        {"C:/Tools/Wizard/wizard.dll", true, R"(C:\Tools\Wizard)"},
        {"wizard.dll", true, R"(C:\Tools\Wizard)"},
        {R"(D:\Own\Files\)", true, R"(D:\Own\Files)"},
        {"E:/Other/x", false, R"(D:\Own\Files)"},
        {"/wizard.so", true, ""},
    };
    for (const auto& c : cases) {
        m_drive.wizardPath = c.path;
        m_drive.hasInfo = c.hasInfo;
        EXPECT_EQ(Run([] {}), 0);
        EXPECT_EQ(GetWizardDirectory(), c.directory) << c.path.toStdString();
    }
}

TEST_F(Module, KeepsStepStatesFromOneRunToTheNext) {
    Run([] {
        Robot::Press(160);
        Robot::Press(kNext);
        Robot::Press(kNext);
    });
    for (const int step : {-1, 0, 8, 9, 16, 32, 111}) {
        SetStepState(step, StepState::Done);
        EXPECT_EQ(GetStepState(step), StepState::NotChosen) << step;
    }
    Run([] {
        EXPECT_EQ(Digits(), "1000000");
        EXPECT_FALSE(Robot::IsEnabled(kNext)) << "a new run starts with nothing ticked";
    });
}

} // namespace
} // namespace krt550
