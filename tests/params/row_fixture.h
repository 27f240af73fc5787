#pragma once

#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_window.h"
#include "tests/support/wizard_files.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/row_table.h"
#include "wizard/platform/control_text.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/module_resources.h"
#include "wizard/texts/wizard_directory.h"

#include <QTest>

namespace krt550 {

/// Texts that the tests of this room count on.
inline const WizardFiles& ParamsFiles() {
    static const WizardFiles files("PAN\t101\tMotor speed\n"
                                   "VAN\t301\t3\tThree\nVAN\t301\t1\tOne\nVAN\t301\t20\tTwenty\n"
                                   "VAN\t302\t40\tForty\nVAN\t302\t5\tFive\n"
                                   "UPDATE\t7\t5\nUPDATE\t8\t0\n",
                                   "VAN\t201\t2\tFast\nVAN\t201\t0\tSlow\n");
    return files;
}

/// A table with a row of each sort that a page may need.
inline constexpr RowIds kSlotIds{.label = 1, .value = 2, .unit = 3, .minimum = 4, .maximum = 5, .list = 6};
inline constexpr RowIds kListIds{.label = 11, .value = 12};
inline constexpr RowDef kUpper[] = {
    {.reg = 101},
    {.reg = 102, .label = "Count", .statics = StaticsShown::Unit, .writeRank = 1},
    {.reg = 201, .kind = RowKind::List, .bindRank = -1},
};
inline constexpr RowDef kLower[] = {
    {.reg = 301, .kind = RowKind::Display, .numbered = false, .refreshed = true},
    {.reg = 999, .whenMissing = WhenMissing::Hide},
    {.kind = RowKind::EditOrList, .hidden = true, .ids = kSlotIds},
    {.kind = RowKind::List, .ids = kListIds},
};
inline constexpr RowGroupDef kGroups[] = {{.caption = "Upper", .rows = kUpper}, {.headings = false, .rows = kLower}};
static_assert(IsSound(kGroups));
inline constexpr PageRows kRows{.layout = 1, .groups = kGroups};

class TableResources : public CModuleResources {
public:
    std::optional<DialogLayout> GetLayout(int) const override {
        CLayoutBuilder layout(1, kPageWidth, kPageHeight);
        CRowStack(layout, kRows, kPageStyle, kRowsTop, kRowsBottom).AddGroups(2);
        return layout.Take();
    }
};

/// A window that updates itself.
class CTickingWindow : public CTestWindow {
public:
    CTickingWindow() {
        onTimer = [this] { UpdateParameters(*this, timer); };
    }
    int timer = 0;
};

/// That table in a window whose layout is built from it, and a drive behind it.
class RowFixture : public testing::Test {
protected:
    RowFixture()
        : m_drive({Number(101, "Speed", 1, -10, 10, "rpm"), Number(102, "Count", 0, 0, 0),
                   List(201, "Switch", {{0, "Off"}, {1, "#excl#"}, {2, "On"}}),
                   List(301, "Texts", {{1, "x"}, {3, "y"}}), Number(302, "Number with texts", 0, 0, 100)}) {
        SetWizardDirectory(ParamsFiles().Directory());
        ClearChanged();
        ClearUpdateList();
    }
    void SetUp() override {
        ASSERT_TRUE(m_window.Create());
        m_window.Widget().show();
        m_window.Widget().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window.Widget()));
    }

    /// A whole update pass.
    void Pass() {
        UpdateParameters(m_window, m_window.timer);
        EndPass();
    }
    void EndPass() {
        EXPECT_TRUE(QTest::qWaitFor([] { return !IsUpdatePassOn(); }));
    }
    bool Bind() { return m_rows.Bind(&m_drive.Root(), errors); }
    CRow& Row(quint16 reg) { return *m_rows.Find(reg); }
    CRow& ListSlot() { return m_rows[6]; }
    QString Text(int id) { return GetControlText(m_window.GetDlgItem(id)); }
    bool IsShown(int id) { return m_window.GetDlgItem(id)->isVisible(); }
    QLineEdit& Edit(quint16 reg) { return *m_window.GetControl<QLineEdit>(ValueId(reg)); }
    QComboBox& Switch() { return *m_window.GetControl<QComboBox>(ValueId(201)); }
    void Type(quint16 reg, const QString& text) {
        Edit(reg).setFocus();
        QTest::keyClick(&Edit(reg), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&Edit(reg), Qt::Key_Delete);
        QTest::keyClicks(&Edit(reg), text);
    }
    void Choose(QWidget* list, const QString& text) {
        static_cast<QComboBox*>(list)->setCurrentText(text);
        m_window.NotifySelected(list);
    }

    TableResources m_resources;
    ResourceScope m_scope{m_resources};
    FakeDrive m_drive;
    MessageBoxes m_boxes;
    CTickingWindow m_window;
    CRowTable m_rows{m_window, kRows};
    QString errors;
};

} // namespace krt550
