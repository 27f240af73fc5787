// A dialog with every kind of control: what keys, ticks and a screen reader do to it.
#include "tests/platform/test_resources.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog.h"
#include "wizard/platform/fitting_scroll_area.h"
#include "wizard/platform/focus.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/tool_tip.h"

#include <QTest>

namespace krt550 {
namespace {

class CFullDialog : public CDialog {
public:
    CFullDialog() : CDialog(TestResources::kDialogLayout) {
        for (const int id : {TestResources::kButton, TestResources::kTick})
            Handle(id, ControlEvent::Clicked, [this, id] { events += QString("click %1;").arg(id); });
        Handle(TestResources::kList, ControlEvent::Selected, [this] { events += "tick;"; });
        Handle(TestResources::kText, ControlEvent::Changed, [this] { events += "text;"; });
    }
    QString TakeEvents() { return std::exchange(events, {}); }
    QString events;
    int timer = 0;
    bool timerLivedInOnDestroy = false;

protected:
    void OnDestroy() override { timerLivedInOnDestroy = KillTimer(timer); }
};

class Dialog : public testing::Test {
protected:
    /// Runs the script with the dialog in front, and returns what it was ended with.
    int Run(const std::function<void()>& script) {
        QTimer::singleShot(0, &m_dialog, [&] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(QApplication::activeModalWidget()));
            script();
            m_dialog.EndDialog(-1);
        });
        return m_dialog.DoModal();
    }
    QWidget* Item(int id) { return m_dialog.GetDlgItem(id); }
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static QAccessibleInterface& Accessible(QWidget* widget) { return *QAccessible::queryAccessibleInterface(widget); }

    TestResources m_resources;
    ResourceScope m_scope{m_resources};
    CFullDialog m_dialog;
};

TEST_F(Dialog, EnterPressesTheDefaultButtonUnlessAnotherOneHasTheFocus) {
    const std::pair<QList<int>, int> cases[] = {{{}, CDialog::kCancel},
                                                {{TestResources::kEdit}, CDialog::kCancel},
                                                {{TestResources::kButton, TestResources::kEdit}, CDialog::kCancel},
                                                {{TestResources::kButton}, -1}};
    for (const auto& [visited, result] : cases) {
        EXPECT_EQ(Run([&, &visited = visited] {
                      for (const int id : visited)
                          Item(id)->setFocus();
                      Key(Qt::Key_Return);
                  }),
                  result)
            << visited.size();
        EXPECT_EQ(m_dialog.TakeEvents(), result < 0 ? "click 3;" : "");
    }
    EXPECT_EQ(Run([] { Key(Qt::Key_Escape); }), CDialog::kCancel);
}

TEST_F(Dialog, AltAndTheFirstLetterPressAButtonWhoseCaptionStaysAsItIs) {
    EXPECT_EQ(Run([this] {
                  Item(TestResources::kEdit)->setFocus();
                  Key(Qt::Key_G, Qt::AltModifier);
                  EXPECT_EQ(m_dialog.TakeEvents(), "click 3;");
                  EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kEdit)) << "no focus loss to complain of";
                  SetControlText(Item(TestResources::kButton), "Run & stop");
                  EXPECT_EQ(GetControlText(Item(TestResources::kButton)), "Run & stop");
                  Key(Qt::Key_G, Qt::AltModifier);
                  EXPECT_EQ(m_dialog.TakeEvents(), "");
                  Key(Qt::Key_R, Qt::AltModifier);
                  EXPECT_EQ(m_dialog.TakeEvents(), "click 3;");
                  EnableControl(Item(TestResources::kButton), false);
                  Key(Qt::Key_R, Qt::AltModifier);
                  EXPECT_EQ(m_dialog.TakeEvents(), "");
                  EXPECT_EQ(GetControlText(Item(TestResources::kClose)), "< Close");
                  Key(Qt::Key_C, Qt::AltModifier);
              }),
              CDialog::kCancel);
}

TEST_F(Dialog, TheKeyboardLeavesADisabledControlForTheWayOutAndComesBack) {
    Run([this] {
        for (const auto& leave : {EnableControl, ShowControl}) {
            QWidget* go = Item(TestResources::kButton);
            go->setFocus();
            leave(go, false);
            EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kClose));
            leave(go, true);
            go->setFocus();
            {
                const CFocusReturn back(go);
                leave(go, false);
                EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kClose)) << "not the next control";
                leave(go, true);
            }
            EXPECT_EQ(QApplication::focusWidget(), go);
            Item(TestResources::kEdit)->setFocus();
            {
                const CFocusReturn back(go);
                EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kClose)) << "however it was started";
                leave(go, false);
                Item(TestResources::kEdit)->setFocus();
                leave(go, true);
            }
            EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kEdit)) << "somebody works here now";
        }
        EnableControl(Item(TestResources::kTick), false);
        EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kEdit)) << "it was another control's";
    });
}

// What the program ticks is nobody's decision; what a person or a screen reader ticks is.
TEST_F(Dialog, TicksAreToldWhenAPersonMakesThem) {
    m_dialog.Create();
    auto* box = m_dialog.GetControl<QCheckBox>(TestResources::kTick);
    auto* list = m_dialog.GetControl<QListWidget>(TestResources::kList);
    ASSERT_TRUE(box && list);
    SetTick(box, true);
    AddCheckEntry(list, "Stop", false);
    AddCheckEntry(list, "Start & go", true);
    AddCheckEntry(list, "Reset", false);
    SetControlText(list, "Stop\nReset");
    EXPECT_EQ(m_dialog.TakeEvents(), "");
    EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(GetControlText(list), "Stop\nReset");
    Run([&] {
        Accessible(box).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(m_dialog.TakeEvents(), "click 16;") << "through accessibility";
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        EXPECT_EQ(m_dialog.TakeEvents(), "click 16;");
        list->setFocus();
        Key(Qt::Key_Space);
        Key(Qt::Key_Down);
        Key(Qt::Key_Space);
        EXPECT_EQ(m_dialog.TakeEvents(), "tick;tick;");
        EXPECT_EQ(GetControlText(list), "Start & go\nReset");
    });
}

TEST_F(Dialog, ShowsLongTextsToReadOnlyAndKeepsItsTimersUntilOnDestroy) {
    int other = 0;
    Run([&] {
        m_dialog.timer = m_dialog.SetTimer(1, 1000);
        other = m_dialog.SetTimer(2, 1000);
        QWidget* text = Item(TestResources::kText);
        SetControlText(text, "First line\nSecond line");
        EXPECT_EQ(m_dialog.TakeEvents(), "text;");
        text->setFocus();
        Key(Qt::Key_A);
        Key(Qt::Key_Delete);
        EXPECT_EQ(GetControlText(text), "First line\nSecond line");
        Key(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), Item(TestResources::kEdit));
    });
    EXPECT_TRUE(m_dialog.timerLivedInOnDestroy);
    EXPECT_FALSE(m_dialog.KillTimer(other)) << "dead since";
}

TEST_F(Dialog, OpensAtAControlAndStaysOnItsScreen) {
    QWidget owner;
    QWidget button(&owner);
    button.setGeometry(10, 20, 60, 15);
    const QRect screen = owner.screen()->availableGeometry();
    owner.resize(100, 50);
    for (const bool onScreen : {true, false}) {
        for (const CDialog::Place place : {CDialog::Place::Over, CDialog::Place::Below}) {
            owner.move(onScreen ? QPoint(30, 40) : screen.bottomRight());
            owner.show();
            m_dialog.OpenAt(button, place);
            Run([&] {
                const QRect frame = QApplication::activeModalWidget()->frameGeometry();
                EXPECT_TRUE(screen.contains(frame));
                EXPECT_EQ(frame.topLeft() == owner.mapToGlobal(QPoint(10, place == CDialog::Place::Over ? 20 : 35)),
                          onScreen);
            });
        }
    }
}

TEST_F(Dialog, ScrollsToTheFocusWhereThereIsNoRoomForAllOfIt) {
    m_dialog.Create();
    QWidget window;
    CFittingScrollArea area(m_dialog, &window);
    EXPECT_EQ(area.sizeHint(), m_dialog.size()) << "no limit";
    area.SetRoom(m_dialog.size() + QSize(1, 1));
    EXPECT_EQ(area.sizeHint(), m_dialog.size());
    const QSize room(m_dialog.width() + 40, m_dialog.height() / 2);
    area.SetRoom(room);
    EXPECT_EQ(area.sizeHint().height(), room.height());
    EXPECT_LE(area.sizeHint().width(), room.width());
    area.resize(area.sizeHint());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const int id : {TestResources::kClose, TestResources::kButton}) {
        Item(id)->setFocus();
        EXPECT_EQ(Item(id)->visibleRegion().boundingRect(), Item(id)->rect()) << id;
    }
    area.takeWidget();
    m_dialog.setParent(nullptr);
}

} // namespace
} // namespace krt550
