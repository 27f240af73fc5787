// Step 5: the tab to turn the motor by hand.
#include "tests/assistants/speed_feedback_fixture.h"

#include "tests/support/test_window.h"
#include "wizard/shell/strip_bitmap_button.h"

#include <QTest>

namespace krt550 {
namespace {

const QString kWarning = "Attention:\nThe motor will run according to the setting of 5003\nMotor 1 speed feedback "
                         "selector!\nMake sure everything is safe!";

class TachoManual : public SpeedFeedbackFixture {
protected:
    void OnTab(const std::function<void()>& script) {
        OnPage([&] {
            Robot::ShowTab(1);
            Robot::Drain();
            m_drive.TakeLog();
            script();
        });
    }
    void TakeLocal() {
        m_boxes.Expect(kWarning).WithIcon(QMessageBox::Warning);
        Robot::Press(kIdLocalOrRemote);
    }
    static int Frame(int id) { return qobject_cast<CStripBitmapButton*>(Robot::Control(id))->GetShownFrame(); }
    static constexpr int kDriveButtons[] = {kIdStartMotor, kIdStopMotor, kIdCloseContactor, kIdOpenContactor};
    static void ExpectDriveButtons(bool enabled) {
        for (const int id : kDriveButtons)
            EXPECT_EQ(Robot::IsEnabled(id), enabled) << id;
        EXPECT_EQ(Frame(kIdLocalOrRemote), enabled ? 1 : 0);
    }
};

TEST_F(TachoManual, TurnsTheMotorWhileLocalControlIsHeld) {
    OnTab([&] {
        ExpectDriveButtons(false);
        m_boxes.Expect(kWarning, Answer::Cancel);
        Robot::Press(kIdLocalOrRemote);
        EXPECT_EQ(Calls() + QStringList(Robot::Text(kIdNotice)), QStringList({"refresh", "refresh", ""}));
        ExpectDriveButtons(false);
        TakeLocal();
        ExpectDriveButtons(true);
        EXPECT_EQ(Calls(), QStringList({"refresh", "take local control", "refresh"}));
        const std::pair<int, const char*> buttons[] = {{kIdCloseContactor, "close contactor"},
                                                       {kIdStartMotor, "start motor"},
                                                       {kIdStopMotor, "stop motor"},
                                                       {kIdOpenContactor, "open contactor"}};
        for (const auto& [id, call] : buttons) {
            Robot::Press(id);
            EXPECT_EQ(Calls(), QStringList({call}));
        }
        Robot::Press(kIdStartMotor);
        Calls();
        Robot::Press(kIdLocalOrRemote);
        EXPECT_EQ(Calls(), QStringList({"refresh"}) + Stop() + QStringList({"refresh"}));
        ExpectDriveButtons(false);
        TakeLocal();
        Robot::Press(kIdStartMotor);
        Robot::Press(kBack);
        EXPECT_EQ(Robot::Layout(), 107);
        ExpectSafe();
    });
}

// Asking whether to take control takes time, in which the tab looks after a control that nobody has yet; once it is
// held and another place takes the drive, nothing may be pressed that has no effect.
TEST_F(TachoManual, LooksAfterLocalControlOnlyWhileItIsHeld) {
    OnTab([&] {
        const QWidget* ofThePage = Robot::Control(kNext);
        m_boxes.Expect(kWarning).Then([&](QMessageBox&) {
            SetTimerAround(ofThePage, 5, 10);
            while (m_clock.Now() < 30)
                m_clock.WaitForEvents(10);
        });
        Robot::Press(kIdLocalOrRemote);
        ExpectDriveButtons(true);
        EXPECT_EQ(Robot::Text(kIdNotice), "");
        Robot::Type(kIdReference, "abc");
        m_drive.fails = [](const QString& call) { return call != "refresh" && !call.startsWith("read"); };
        const std::pair<int, const char*> refused[] = {
            {kIdSetNewReference, "The drive did not take the speed reference \"abc\"."},
            {kIdCloseContactor, "The drive did not close its main contactor."},
            {kIdStartMotor, "The drive did not start the motor."}};
        for (const auto& [button, notice] : refused) {
            Robot::Press(button);
            EXPECT_EQ(Robot::Text(kIdNotice), notice);
        }
        m_drive.fails = {};
        m_drive.localControl = false;
        EXPECT_TRUE(Robot::WaitUntil([] { return !Robot::IsEnabled(kIdStartMotor); }));
        ExpectDriveButtons(false);
        EXPECT_EQ(Robot::Text(kIdNotice), "Local control was lost: another control place has taken the drive.");
    });
}

TEST_F(TachoManual, SendsTheReferenceByButtonAndEnter) {
    OnTab([&] {
        Robot::Type(kIdReference, "500");
        EXPECT_EQ(Calls(), QStringList());
        Robot::Press(kIdSetNewReference);
        EXPECT_EQ(Calls(), QStringList({"set reference 500"}));
        Robot::TypeOnly(kIdReference, "-250");
        QTest::keyClick(Robot::Control(kIdReference), Qt::Key_Return);
        EXPECT_EQ(Calls(), QStringList({"set reference -250"}));
        EXPECT_EQ(Robot::Layout(), 110) << "Enter is not Next";
        Robot::TypeOnly(kIdReference, "");
        QTest::keyClick(Robot::Control(kIdReference), Qt::Key_Return);
        EXPECT_EQ(Calls(), QStringList());
    });
}

TEST_F(TachoManual, StepsTheAdjustment) {
    OnTab([&] {
        Robot::Press(kIdStepUp);
        EXPECT_EQ(Calls(), QStringList({"read 8827", "write 8827=10050", "read 8827"}));
        EXPECT_EQ(Robot::Text(ValueId(8827)), "100.50");
        m_boxes.Expect("The wizard text file gives no step for the tacho adjustment.");
        Robot::Press(kIdStepDown);
        EXPECT_EQ(Calls(), QStringList());
        m_drive.words[8827] = 20000;
        m_boxes.Expect("*").Then([](QMessageBox& box) { EXPECT_TRUE(box.text().contains("88.27")); });
        Robot::Press(kIdStepUp);
        EXPECT_EQ(m_drive.words[8827], 20000) << "not beyond its limit";
        m_drive.unreadable = {8827};
        m_boxes.Expect("Reading parameter 88.27 Analog tacho adjust failed: simulated failure");
        Calls();
        Robot::Press(kIdStepUp);
        EXPECT_EQ(Calls(), QStringList({"read 8827"})) << "not from an old value";
        m_drive.unreadable.clear();
    });
}

} // namespace
} // namespace krt550
