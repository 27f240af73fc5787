#include "tests/shell/wizard_fixture.h"

#include "tests/support/application_end.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/row_page.h"
#include "wizard/shell/sheet_wizard.h"

#include <QTest>

namespace krt550 {
namespace {

const QStringList kCommands = {"stop", "start", "open", "close", "take", "release", "reset"};

using PageBase = WizardFixture;

// Whichever way the wizard is left, a motor that it controls is stopped before control is given back.
TEST_F(PageBase, MakesTheDriveSafeOnEveryWayOut) {
    struct {
        const char* name;
        bool onPage;
        std::function<void()> leave;
        int layoutAfter;
    } const ways[] = {
        {"cancel on a page", true, [] { Robot::Press(kCancel); }, 107},
        {"close on the start page", false, [] { Robot::Press(kCancel); }, 0},
        {"the window's close button", true, [] { Robot::CloseWindow(); }, 0},
        {"escape", true, [] { QTest::keyClick(Robot::Front(), Qt::Key_Escape); }, 0},
        {"end of the application", true, EndApplication, -1},
    };
    for (const auto& way : ways) {
        for (const bool holdsControl : {true, false}) {
            m_drive.cancelCondition = holdsControl;
            EXPECT_EQ(Run([&] {
                          if (way.onPage)
                              Robot::Press(kStart);
                          m_drive.localControl = true;
                          m_drive.TakeLog();
                          way.leave();
                          if (way.layoutAfter >= 0) {
                              EXPECT_EQ(Robot::Layout(), way.layoutAfter) << way.name;
                          }
                      }),
                      0);
            RestartApplication();
            const QStringList safe = {"stop motor", "open contactor", "release local control"};
            EXPECT_EQ(m_drive.TakeLog(kCommands), holdsControl ? safe : QStringList()) << way.name;
        }
    }
}

// Whoever has typed something and not applied it is asked before it is lost.
TEST_F(PageBase, AsksBeforeWhatWasTypedIsLost) {
    const QString question = "Values that were typed have not been applied.\nClose the wizard without them?";
    Run([&] {
        Robot::Press(kStart);
        Robot::TypeOnly(29904, "1000");
        m_boxes.Expect(question, Answer::Cancel);
        QTest::keyClick(Robot::Front(), Qt::Key_Escape);
        m_boxes.Expect(question, Answer::Cancel);
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close); // by the window's own button
        qApp->notify(Robot::Front(), &close);
        EXPECT_FALSE(close.isAccepted());
        EXPECT_EQ(Robot::Text(29904), "1000");
        Robot::Press(kApply);
        QTest::keyClick(Robot::Front(), Qt::Key_Escape);
        EXPECT_EQ(Robot::Front(), nullptr) << "nothing is lost any more";
    });
    Run([&] {
        Robot::Press(kStart);
        Robot::TypeOnly(29904, "1100");
        m_boxes.Expect(question);
        QTest::keyClick(Robot::Front(), Qt::Key_Escape);
        EXPECT_EQ(Robot::Front(), nullptr);
    });
    EXPECT_EQ(m_drive.words[9904], 1000);
}

// Straight from the edit to Apply: one report, not one for the focus and one for the button.
TEST_F(PageBase, ChecksAnEditOnceWhenItLosesTheFocus) {
    const QString invalid = "For parameter 9902 given value was invalid.\nPlease input valid value.";
    Run([&] {
        Robot::Press(kStart);
        m_boxes.Expect(invalid);
        Robot::Type(29902, "9999");
        m_boxes.Verify();
        EXPECT_EQ(Robot::Text(29902), "9999") << "nothing typed is lost";
        m_boxes.Expect(invalid);
        Robot::TypeOnly(29902, "8888");
        QWidget* apply = Robot::Control(kApply);
        QTest::mouseClick(apply->window()->windowHandle(), Qt::LeftButton, {},
                          apply->mapTo(apply->window(), apply->rect().center()));
        Robot::Drain();
        m_boxes.Verify();
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
    });
}

TEST_F(PageBase, ResetsAFaultFromEveryPage) {
    Run([this] {
        m_drive.TakeLog();
        Robot::Press(kReset);
        Robot::Press(kStart);
        Robot::Press(kReset);
        EXPECT_EQ(m_drive.TakeLog(kCommands), (QStringList{"reset fault", "reset fault"}));
        EXPECT_EQ(Robot::Control(kReset)->toolTip(), "Reset faulted drive");
        EXPECT_EQ(Robot::Control(kReset)->size(), QSize(27, 23)) << "one frame of the strip";
    });
}

} // namespace
} // namespace krt550
