// Help shows the topic of the page in front, from the book as it is shipped.
#include "tests/shell/wizard_fixture.h"
#include "tests/support/shipped_drive.h"

#include <QApplication>
#include <QTextBrowser>

namespace krt550 {
namespace {

QTextBrowser* OpenTopic() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* browser = window->isVisible() ? window->findChild<QTextBrowser*>() : nullptr)
            return browser;
    return nullptr;
}

TEST_F(WizardFixture, HelpShowsTheTopicOfThePageInFront) {
    FakeDrive drive(ShippedParameters());
    drive.wizardPath = QStringLiteral(KRT550_WIZARD_FILES "/KRT550Wizard.so");
    // A page, its check box, its topic; 0 stands for the start page.
    const struct {
        int box;
        const char* topic;
    } pages[] = {{0, "default.htm"}, {160, "1.htm"},  {164, "2.htm"},  {165, "3.htm"},  {166, "4.htm"},  {167, "5.htm"},
                 {168, "6.htm"},     {169, "7.htm"},  {171, "8.htm"},  {173, "9.htm"},  {174, "10.htm"}, {175, "11.htm"},
                 {176, "12.htm"},    {177, "13.htm"}, {178, "14.htm"}, {179, "15.htm"}, {180, "16.htm"}};
    for (const auto& page : pages) {
        RunWizardWith(drive, [&] {
            if (page.box) {
                if (!Robot::Find(page.box))
                    Robot::Press(kView);
                Robot::Press(page.box);
                Robot::Press(kNext);
            }
            Robot::Press(kHelp);
            QTextBrowser* browser = OpenTopic();
            ASSERT_TRUE(browser) << page.topic;
            EXPECT_TRUE(browser->source().toString().endsWith(QLatin1String(page.topic)))
                << browser->source().toString().toStdString();
            browser->window()->close();
        });
    }
}

} // namespace
} // namespace krt550
