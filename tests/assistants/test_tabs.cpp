// Pages with tabs, on those of step 6 and step 5: when tabs are made and loaded, what is refreshed, the keys inside
// them.
#include "tests/assistants/feedback_drive.h"
#include "tests/assistants/tuning_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

#include <QTest>

namespace krt550 {
namespace {

constexpr int kStep5 = 167;
constexpr int kStep6 = 168;

class Tabs : public TuningFixture<FeedbackDrive> {
protected:
    Tabs() : TuningFixture("UPDATE\t5\t5\nUPDATE\t6\t5\n") {}

    static QTabBar* Bar() { return Robot::Front()->findChild<QTabBar*>(); }
};

TEST_F(Tabs, AreMadeByTheFirstActivationThatGetsARootAndReadWhenTheyComeToTheFront) {
    m_drive.hasRoot = false;
    OnPage(kStep6, [this] {
        EXPECT_FALSE(Bar() && Bar()->isVisible());
        Robot::Press(kApply); // nothing to write
        Robot::Press(kBack);
        m_drive.hasRoot = true;
        Robot::Press(kNext);
        EXPECT_TRUE(Bar()->isVisible());
        m_drive.TakeLog();
        Robot::ShowTab(1);
        const QStringList limits = {"read 2003", "read 2005", "read 2006", "read 2012", "read 2013"};
        EXPECT_EQ(m_drive.TakeLog().mid(0, 5), limits);
        Robot::Press(kBack);
        m_drive.TakeLog();
        Robot::Press(kNext);
        EXPECT_EQ(m_drive.TakeLog().mid(0, 6), limits + QStringList{"read 2403"}) << "only the tab in front";
        m_drive.words[9904] = 44;
        Robot::ShowTab(0);
        EXPECT_EQ(Robot::Text(ValueId(9904)), "44");
    });
}

// A tab in front follows the drive, and the page's own rows with it; a tab behind costs nothing.
TEST_F(Tabs, AreRefreshedInFrontOnly) {
    OnPage(kStep6, [this] {
        Robot::Control(kNext)->setFocus(); // what has the focus is not refreshed
        m_drive.words[2403] = 92;
        m_drive.words[9904] = 94;
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(ValueId(9904)) == "94"; }));
        EXPECT_EQ(Robot::Text(ValueId(2403)), "92");
        Robot::ShowTab(1);
        m_drive.TakeLog();
        m_drive.words[2003] = 39;
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(ValueId(2003)) == "39"; }));
        EXPECT_EQ(m_drive.TakeLog({"read 9904", "read 2001"}), QStringList());
        Robot::Press(kBack);
        m_drive.TakeLog();
        Robot::LetPass(15);
        EXPECT_EQ(m_drive.TakeLog({"read"}), QStringList()) << "nothing after the page is left";
    });
}

// Enter neither presses Next nor Escape closes the wizard where a person is busy with a tab.
TEST_F(Tabs, KeepEnterAndEscapeToThemselvesAndHaveF1ForTheHelpOfTheirPage) {
    for (const int step : {kStep5, kStep6}) {
        OnPage(step, [&] {
            QWidget* inside = Robot::Control(step == kStep5 ? int(kIdAutotuningStart) : ValueId(9904));
            const int layout = Robot::Layout();
            int helps = 0;
            QObject::connect(static_cast<QPushButton*>(Robot::Control(kHelp)), &QPushButton::clicked, Robot::Front(),
                             [&helps] { ++helps; });
            for (QWidget* place : {inside, static_cast<QWidget*>(Bar())}) {
                place->setFocus();
                ASSERT_EQ(QApplication::focusWidget(), place);
                for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_F1})
                    QTest::keyClick(place, key);
                EXPECT_EQ(Robot::Layout(), layout);
            }
            EXPECT_EQ(helps, 2);
            EXPECT_TRUE(static_cast<QPushButton*>(Robot::Control(kNext))->isDefault());
            if (step == kStep6) {
                Robot::Control(ValueId(2403))->setFocus();
                QTest::keyClick(Robot::Control(ValueId(2403)), Qt::Key_Return);
                EXPECT_EQ(Robot::Layout(), 107) << "in the page's own edit it does what it does in dialogs";
            }
        });
    }
}

} // namespace
} // namespace krt550
