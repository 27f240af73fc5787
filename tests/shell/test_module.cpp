// The module as a host meets it.
#include "tests/shell/wizard_fixture.h"

#include "wizard/run_wizard.h"
#include "wizard/texts/wizard_directory.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

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
    };
    for (const auto& c : cases) {
        m_drive.wizardPath = c.path;
        m_drive.hasInfo = c.hasInfo;
        EXPECT_EQ(Run([] {}), 0);
        EXPECT_EQ(GetWizardDirectory(), c.directory) << c.path.toStdString();
    }
}

TEST_F(Module, FindsADirectoryWithABackslashInItsName) {
    const QTemporaryDir directory;
    const QString own = directory.filePath(R"(a\b)");
    ASSERT_TRUE(QDir().mkdir(own));
    m_drive.wizardPath = own + "/wizard.dll";
    EXPECT_EQ(Run([] {}), 0);
    EXPECT_EQ(GetWizardDirectory(), QString(own).replace('/', '\\'));
    EXPECT_EQ(MachinePath(WizardFilePath("x")), own + "/x");
}

TEST_F(Module, KeepsStepStatesFromOneRunToTheNext) {
    Run([] {
        Robot::Press(160);
        Robot::Press(kNext);
        Robot::Press(kNext);
    });
    EXPECT_EQ(Digits(), "1000000");
    Run([] {
        EXPECT_EQ(Digits(), "1000000");
        EXPECT_FALSE(Robot::IsEnabled(kNext)) << "a new run starts with nothing ticked";
    });
}

} // namespace
} // namespace krt550
