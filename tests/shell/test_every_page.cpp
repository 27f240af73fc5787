// Every page on the drive and the texts as they are shipped: its layout, its title, its help topic.
#include "tests/shell/wizard_fixture.h"
#include "tests/support/shipped_drive.h"

namespace krt550 {
namespace {

QTextBrowser* OpenTopic() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* browser = window->isVisible() ? window->findChild<QTextBrowser*>() : nullptr)
            return browser;
    return nullptr;
}

TEST_F(WizardFixture, EveryPageHasItsLayoutTitleAndTopic) {
    FakeDrive drive(ShippedParameters());
    drive.wizardPath = QStringLiteral(KRT550_WIZARD_FILES "/KRT550Wizard.so");
    // A page's check box, 0 for the start page.
    const struct {
        int box, layout;
        const char* title;
        const char* topic;
        const char* tabs = "";
    } pages[] = {{0, 107, "Assistant menu", "default.htm"},
                 {160, 100, "1. Name plate data", "1.htm"},
                 {164, 101, "2. Macro assistant", "2.htm"},
                 {165, 103, "3. Autotuning field current controller", "3.htm"},
                 {166, 104, "4. Autotuning armature current controller", "4.htm"},
                 {167, 110, "5. Speed feedback assistant", "5.htm", "Auto|Tacho manual"},
                 {168, 111, "6. Autotuning speed controller", "6.htm", "Set general parameters|Set limits|Set filters"},
                 {169, 112, "7. Field weakening assistant", "7.htm"},
                 {171, 134, "I/O assistant", "8.htm"},
                 {173, 133, "Protections and limit assistant", "9.htm", "Protections|Limits"},
                 {174, 135, "E-stop / el. disconnect assistant", "10.htm"},
                 {175, 136, "Field reversal assistant", "11.htm"},
                 {176, 137, "Field exciter assistant", "12.htm"},
                 {177, 138, "Master-follower / drive to drive assistant", "13.htm",
                  "Mail box 1|Mail box 2|Mail box 3|Mail box 4"},
                 {178, 139, "12-pulse assistant", "14.htm", "Common|Protections"},
                 {179, 146, "Serial communication assistant", "15.htm",
                  "Fieldbus parameters|Datasets (from PLC to KRT550)|Datasets (from KRT550 to PLC)"},
                 {180, 147, "Configurable assistant", "16.htm"}};
    for (const auto& page : pages) {
        SCOPED_TRACE(page.title);
        RunWizardWith(drive, [&] {
            if (page.box) {
                if (!Robot::Find(page.box))
                    Robot::Press(kView);
                Robot::Press(page.box);
                Robot::Press(kNext);
            }
            EXPECT_EQ(Robot::Layout(), page.layout);
            EXPECT_EQ(Robot::Title(), QLatin1String("[KRT550Wizard] ") + QLatin1String(page.title));
            QStringList tabs;
            for (const auto* bar : Robot::Front()->findChildren<QTabBar*>())
                for (int tab = 0; tab < bar->count(); ++tab)
                    tabs.append(bar->tabText(tab));
            EXPECT_EQ(tabs.join('|'), page.tabs);
            Robot::Press(kHelp);
            QTextBrowser* browser = OpenTopic();
            ASSERT_TRUE(browser);
            EXPECT_TRUE(browser->source().toString().endsWith(QLatin1String(page.topic)))
                << browser->source().toString().toStdString();
            browser->window()->close();
        });
    }
}

} // namespace
} // namespace krt550
