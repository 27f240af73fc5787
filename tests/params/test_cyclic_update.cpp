#include "tests/params/row_fixture.h"

#include "wizard/platform/control_text.h"

#include <QTest>

namespace krt550 {
namespace {

/// Resources with one layout: the edits of 101 and 102 and the drop-down of 201.
class UpdateResources : public CModuleResources {
public:
    std::optional<DialogLayout> GetLayout(int) const override {
        DialogLayout layout{.number = 1, .width = 200, .height = 60, .caption = {}, .controls = {}};
        layout.controls = {{.id = 20101, .kind = ControlKind::Edit, .rect = {0, 0, 60, 14}},
                           {.id = 20102, .kind = ControlKind::Edit, .rect = {0, 20, 60, 14}},
                           {.id = 20201, .kind = ControlKind::DropDown, .rect = {0, 40, 60, 14}}};
        return layout;
    }
};

class CTickingWindow : public CWindow {
public:
    CTickingWindow() : CWindow(1) {
        Handle(20101, ControlEvent::Changed, [] { MarkChanged(101); });
        Handle(20102, ControlEvent::Changed, [] { MarkChanged(102); });
    }
    int timer = 0;

protected:
    void OnTimer(int) override { UpdateParameters(*this, timer); }
};

class CyclicUpdate : public RowFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_window.Create());
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        Edit(102).setFocus();
        for (const int reg : {101, 102})
            ASSERT_TRUE(
                BindEditRow(&m_drive.Root(), parameter, static_cast<quint16>(reg), &label, &Edit(reg), errors, {}));
        ASSERT_TRUE(BindListRow(&m_drive.Root(), parameter, 201, &label, &List(), errors));
        ClearChanged();
        m_window.setFocus();
        m_drive.TakeLog();
    }
    QLineEdit& Edit(int reg) { return *m_window.GetControl<QLineEdit>(20000 + reg); }
    QComboBox& List() { return *m_window.GetControl<QComboBox>(20201); }
    void Pass() { UpdateParameters(m_window, m_window.timer); }

    UpdateResources m_updateResources;
    ResourceScope m_updateScope{m_updateResources};
    CTickingWindow m_window;
};

TEST_F(CyclicUpdate, FollowsTheDriveWithoutMarking) {
    m_drive.words[101] = 15;
    m_drive.words[201] = 2;
    Pass();
    EXPECT_EQ(Edit(101).text(), "1.5");
    EXPECT_EQ(List().currentText(), "On");
    EXPECT_FALSE(IsChanged(101));
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 101", "read 102", "read 201"})) << "once each, in binding order";
    m_drive.words[201] = 9;
    Pass();
    EXPECT_EQ(List().currentIndex(), -1) << "no choice fits";
}

TEST_F(CyclicUpdate, LeavesWhatTheUserWorksOnAlone) {
    Edit(101).setFocus();
    m_drive.words[101] = 15;
    Pass();
    EXPECT_EQ(Edit(101).text(), "0.0") << "the edit with the focus";
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 102", "read 201"}));
    m_window.setFocus();
    MarkChanged(101);
    Edit(101).setText("7");
    for (int i = 0; i < 3; ++i)
        Pass();
    EXPECT_EQ(Edit(101).text(), "7") << "a changed value that is not applied";
    UnmarkChanged(101);
    Pass();
    EXPECT_EQ(Edit(101).text(), "1.5");
}

// The drive's value changes with every pass, and a pass runs between any two keystrokes.
TEST_F(CyclicUpdate, NeverLosesAKeystroke) {
    m_window.timer = m_window.SetTimer(7, 1);
    QLineEdit& edit101 = Edit(101);
    edit101.setFocus();
    edit101.clear();
    QString typed;
    for (int key = 0; key < 100; ++key) {
        const QChar digit = QLatin1Char(static_cast<char>('0' + key % 10));
        typed += digit;
        QTest::keyClick(&edit101, digit.toLatin1());
        ++m_drive.words[101];
        m_drive.TakeLog();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !m_drive.TakeLog().isEmpty(); })) << "no pass";
        ASSERT_EQ(edit101.text(), typed);
    }
    EXPECT_TRUE(IsChanged(101));
}

TEST_F(CyclicUpdate, StopsOnceAndSaysSoWhenAReadFails) {
    m_window.timer = m_window.SetTimer(7, 60000);
    m_drive.unreadable = {101, 102};
    m_drive.words[201] = 2;
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
    m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
    Pass();
    EXPECT_EQ(m_window.timer, 0);
    EXPECT_EQ(List().currentText(), "On") << "the rest of the pass is still shown";

    m_window.timer = 4711;
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
    m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
    m_boxes.Expect("Unable to stop parameter update.");
    Pass();
    int unknown = 4711;
    m_boxes.Expect("Unable to stop parameter update.");
    StopParameterUpdate(m_window, unknown);
    EXPECT_EQ(unknown, 0);
}

TEST_F(CyclicUpdate, StartsOnlyWithAPeriod) {
    EXPECT_NE(StartParameterUpdate(m_window, 7), 0);
    EXPECT_EQ(StartParameterUpdate(m_window, 8), 0) << "period 0";
    EXPECT_EQ(StartParameterUpdate(m_window, 9), 0) << "no period";
}

TEST_F(CyclicUpdate, ListsAPairOnceAndSkipsControlsThatTheWindowLacks) {
    RegisterForUpdate(m_drive.Root().FindChildByRegister("101"), &Edit(101));
    RegisterForUpdate(m_drive.Root().FindChildByRegister("302"), &edit);
    edit.setObjectName("20302");
    RegisterForUpdate(m_drive.Root().FindChildByRegister("302"), &edit);
    m_drive.TakeLog();
    m_window.setFocus();
    Pass();
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 101", "read 102", "read 201", "read 302"}))
        << "302 once through the window's own 20101";
    ClearUpdateList();
    Pass();
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
}

} // namespace
} // namespace krt550
