#include "tests/platform/test_resources.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog.h"

#include <QTest>

namespace krt550 {
namespace {

/// A dialog that writes down what its controls and timers tell it.
class CRecordingDialog : public CDialog {
public:
    CRecordingDialog() : CDialog(TestResources::kLayout) {
        for (const int id : {TestResources::kEdit, TestResources::kOtherEdit}) {
            Handle(id, ControlEvent::Changed, [this, id] { events += QString("change %1;").arg(id); });
            Handle(id, ControlEvent::FocusLost, [this, id] { events += QString("left %1;").arg(id); });
        }
        Handle(TestResources::kDropDown, ControlEvent::Selected, [this] { events += "select;"; });
        Handle(TestResources::kButton, ControlEvent::Clicked, [this] { events += "click;"; });
    }

    QString TakeEvents() { return std::exchange(events, {}); }

    QString events;
};

class Window : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dialog.Create());
        m_dialog.show();
        m_dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    TestResources m_resources;
    ResourceScope m_scope{m_resources};
    CRecordingDialog m_dialog;
    QLineEdit& Edit() { return *m_dialog.GetControl<QLineEdit>(TestResources::kEdit); }
    QComboBox& DropDown() { return *m_dialog.GetControl<QComboBox>(TestResources::kDropDown); }
};

TEST_F(Window, WritesFromCodeNotifyForEditsAndNotForDropDowns) {
    SetControlText(&Edit(), "12");
    SetControlText(&Edit(), "12");
    EXPECT_EQ(m_dialog.TakeEvents(), "change 1;change 1;");

    DropDown().addItems({"Off", "On"});
    EXPECT_TRUE(SelectChoice(&DropDown(), "on"));
    EXPECT_FALSE(SelectChoice(&DropDown(), "o"));
    EXPECT_EQ(DropDown().currentIndex(), -1);
    EXPECT_EQ(m_dialog.TakeEvents(), "");

    QTest::keyClick(&DropDown(), Qt::Key_Down);
    EXPECT_EQ(m_dialog.TakeEvents(), "select;");
}

// A choice that is no other changes nothing in the drive: it must not be written.
TEST_F(Window, TellsOfAChoiceOnlyWhenItDiffers) {
    QComboBox& list = DropDown();
    list.addItems({"Off", "On", "Auto"});
    list.setFocus();
    const auto choose = [&](int index) {
        list.showPopup();
        QAbstractItemView* view = list.view();
        QCoreApplication::processEvents();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(list.model()->index(index, 0)).center());
    };
    const auto chooseByKeys = [&](Qt::Key key) {
        list.showPopup();
        if (key != Qt::Key_Return)
            QTest::keyClick(list.view(), key);
        QTest::keyClick(list.view(), Qt::Key_Return);
    };
    const auto wheel = [&](int delta) {
        QWheelEvent event(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &event);
        EXPECT_EQ(event.isAccepted(), list.hasFocus()) << "or it scrolls the page";
    };
    EXPECT_EQ(list.focusPolicy(), Qt::StrongFocus) << "not by the wheel";
    const auto select = [&](const char* text) {
        SelectChoice(&list, QString::fromLatin1(text));
        QCoreApplication::processEvents();
    };
    select("On");
    struct {
        const char* name;
        std::function<void()> act;
        const char* chosen;
        bool told;
    } const steps[] = {
        {"wheel", [&] { wheel(-120); }, "Auto", true},
        {"wheel without the focus", [&] { Edit().setFocus(), wheel(120); }, "Auto", false},
        {"selected by the program", [&] { select("On"); }, "On", false},
        {"the same from the list", [&] { chooseByKeys(Qt::Key_Return); }, "On", false},
        {"another from the list", [&] { chooseByKeys(Qt::Key_Down); }, "Auto", true},
        {"by mouse, the same", [&] { choose(2); }, "Auto", false},
        {"by the program, then the same", [&] { select("Off"), chooseByKeys(Qt::Key_Return); }, "Off", false},
        {"key at the end of the list", [&] { QTest::keyClick(&list, Qt::Key_Up); }, "Off", false},
        {"key", [&] { QTest::keyClick(&list, Qt::Key_Down); }, "On", true},
        {"its first letter", [&] { QTest::keyClick(&list, Qt::Key_A); }, "Auto", true},
    };
    for (const auto& step : steps) {
        m_dialog.TakeEvents();
        step.act();
        EXPECT_EQ(m_dialog.TakeEvents().contains("select;"), step.told) << step.name;
        EXPECT_EQ(list.currentText(), step.chosen) << step.name;
        QCoreApplication::processEvents();
    }
}

TEST_F(Window, ShowsAmpersandsAsTheyAre) {
    QWidget* label = m_dialog.GetDlgItem(TestResources::kLabel);
    EXPECT_EQ(GetControlText(label), "Torque & speed");
    EXPECT_EQ(Edit().accessibleName(), "Torque & speed");
    SetControlText(label, "U & I");
    EXPECT_EQ(GetControlText(label), "U & I");
    EXPECT_EQ(Edit().accessibleName(), "U & I");
}

TEST_F(Window, ReportsFocusLossOnlyWhenTheFocusReallyLeaves) {
    Edit().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Edit(), Qt::Key_Return);
    EXPECT_EQ(m_dialog.TakeEvents(), "") << "Enter is no focus loss";
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&Edit(), &menu);
    EXPECT_EQ(m_dialog.TakeEvents(), "") << "a menu borrows the focus";
    m_dialog.GetDlgItem(TestResources::kOtherEdit)->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(m_dialog.TakeEvents(), "left 1;");
}

// A click goes through first. Half a number is no number yet: whoever is back in the edit goes on typing.
TEST_F(Window, ReportsTheFocusLossAfterTheClickAndNotWhenTheFocusIsBack) {
    QWidget* button = m_dialog.GetDlgItem(TestResources::kButton);
    Edit().setFocus(Qt::TabFocusReason);
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_EQ(m_dialog.TakeEvents(), "");
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_dialog.events.contains("left"); }));
    EXPECT_EQ(m_dialog.TakeEvents(), "click;left 1;");
    m_dialog.Handle(TestResources::kButton, ControlEvent::Clicked, [this] { Edit().setFocus(); });
    Edit().setFocus(Qt::TabFocusReason);
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_dialog.TakeEvents(), "");
}

} // namespace
} // namespace krt550
