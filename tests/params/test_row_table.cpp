// A table with a row of each sort that a page may need, in a window whose layout is built from it.
#include "tests/params/row_fixture.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/row_table.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/layout_parts.h"

#include <QTest>

namespace krt550 {
namespace {

constexpr RowIds kSlotIds{.label = 1, .value = 2, .unit = 3, .minimum = 4, .maximum = 5, .list = 6};

constexpr RowDef kUpper[] = {
    {.reg = 101},
    {.reg = 102, .label = "Count", .statics = StaticsShown::Unit, .writeRank = 1},
    {.reg = 201, .kind = RowKind::List, .bindRank = -1},
};
constexpr RowDef kLower[] = {
    {.reg = 301, .kind = RowKind::Display, .refreshed = true},
    {.reg = 999, .whenMissing = WhenMissing::Hide},
    {.kind = RowKind::EditOrList, .hidden = true, .ids = kSlotIds},
};
constexpr RowGroupDef kGroups[] = {{.caption = "Upper", .rows = kUpper}, {.headings = false, .rows = kLower}};
static_assert(IsSound(kGroups));
constexpr PageRows kRows{.layout = 1, .groups = kGroups};

class TableResources : public CModuleResources {
public:
    std::optional<DialogLayout> GetLayout(int) const override {
        CLayoutBuilder layout(1, kPageWidth, kPageHeight);
        CRowStack(layout, kRows, kPageStyle, kRowsTop, kRowsBottom).AddGroups(2);
        return layout.Take();
    }
};

class RowTable : public RowFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_window.Create());
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    bool Bind() { return m_rows.Bind(&m_drive.Root(), errors); }
    QString Text(int id) { return GetControlText(m_window.GetDlgItem(id)); }
    bool IsShown(int id) { return m_window.GetDlgItem(id)->isVisible(); }
    QComboBox& Switch() { return *m_window.GetControl<QComboBox>(ValueId(201)); }
    void Type(int id, const QString& text) {
        QWidget* control = m_window.GetDlgItem(id);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(control, text);
    }
    void Choose(const QString& text) {
        Switch().setCurrentText(text);
        m_window.Notify(&Switch(), ControlEvent::Selected);
    }

    TableResources m_tableResources;
    ResourceScope m_tableScope{m_tableResources};
    CWindow m_window{1};
    CRowTable m_rows{m_window, kRows};
};

TEST_F(RowTable, BindsAndWritesByRank) {
    EXPECT_TRUE(Bind());
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 201", "read 101", "read 102", "read 301"}));
    Type(ValueId(101), "3,5");
    Type(ValueId(102), "7");
    Choose("On");
    EXPECT_TRUE(m_rows.Write());
    EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 101=35", "write 201=2", "write 102=7"}));
    EXPECT_TRUE(m_rows.Write());
    EXPECT_EQ(m_drive.TakeLog(), QStringList()) << "nothing changed since";
}

TEST_F(RowTable, ShowsWhatItsRowsSay) {
    EXPECT_EQ(Text(LabelId(101)) + "|" + Text(LabelId(102)), "101|Count");
    Bind();
    EXPECT_EQ(Text(LabelId(101)) + "|" + Text(LabelId(301)), "101 Motor speed|301 Texts");
    EXPECT_TRUE(m_window.GetDlgItem(UnitId(102)));
    EXPECT_FALSE(m_window.GetDlgItem(MinimumId(102)) || m_window.GetDlgItem(UnitId(201)));
    for (const int id : {LabelId(999), ValueId(999), kSlotIds.value, kSlotIds.list})
        EXPECT_FALSE(IsShown(id)) << id;
    EXPECT_FALSE(m_window.GetDlgItem(kSlotIds.value)->isEnabled());
    m_drive.words[301] = 3;
    int timer = 0;
    UpdateParameters(m_window, timer);
    EXPECT_EQ(Text(ValueId(301)), "Three") << "a display follows the drive where the table says so";
}

// The macro's rows, the mailboxes: which parameter a row has is known at run time only.
TEST_F(RowTable, GivesARowItsRegisterAtRunTime) {
    Bind();
    CRow& slot = *m_rows.Find(0);
    struct {
        quint16 reg;
        QString label;
        QString value;
        int shown;
        int hidden;
        bool statics;
    } const cases[] = {{102, "102 Own name", "4", kSlotIds.value, kSlotIds.list, true},
                       {201, "201 Own name", "On", kSlotIds.list, kSlotIds.value, false},
                       {0, "", "", kSlotIds.value, kSlotIds.list, true}};
    m_drive.words[102] = 4;
    m_drive.words[201] = 2;
    slot.SetCaption("Own name");
    slot.Show(true);
    for (const auto& c : cases) {
        slot.SetRegister(c.reg);
        EXPECT_TRUE(slot.Bind(&m_drive.Root(), errors));
        EXPECT_EQ(Text(kSlotIds.label), c.label);
        EXPECT_EQ(GetControlText(slot.GetValueControl()), c.value);
        EXPECT_TRUE(IsShown(c.shown) && !IsShown(c.hidden)) << c.reg;
        EXPECT_EQ(IsShown(kSlotIds.unit), c.statics);
        EXPECT_EQ(slot.GetValueControl()->isEnabled(), c.reg != 0);
    }
    slot.SetRegister(102);
    slot.Bind(&m_drive.Root(), errors);
    m_rows.Find(102)->Unmark();
    m_drive.TakeLog();
    slot.Enter("6");
    EXPECT_TRUE(slot.Write()) << "as if the user had typed it";
    EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList{"write 102=6"});
}

TEST_F(RowTable, MarksOnlyWhatAPersonHasChanged) {
    int changes = 0;
    m_rows.Find(201)->SetChangeHandler([&changes] { ++changes; });
    Bind();
    m_drive.words[101] = 15;
    Type(ValueId(101), "9");
    EXPECT_TRUE(IsChanged(101));
    EXPECT_TRUE(m_rows.Reread(0, m_rows.size() - 2));
    EXPECT_EQ(Text(ValueId(101)), "1.5");
    EXPECT_FALSE(IsChanged(101)) << "results of a run are not the user's";

    struct {
        const char* choice;
        bool changed;
    } const choices[] = {{"Off", false}, {"On", true}, {"Off", false}, {"On", true}};
    for (const auto& [choice, changed] : choices) {
        Choose(choice);
        EXPECT_EQ(IsChanged(201), changed) << choice;
    }
    EXPECT_EQ(changes, 2);
    m_drive.unwritable.insert(201);
    m_boxes.Expect("Writing parameter 2.01 Switch failed: simulated failure");
    EXPECT_FALSE(m_rows.Write());
    Choose("Off");
    EXPECT_TRUE(IsChanged(201)) << "what the drive holds now is not known";
    MarkChanged(4711);
    m_rows.Unmark();
    EXPECT_TRUE(IsChanged(4711) && !IsChanged(201)) << "a window forgets its own rows only";
}

TEST_F(RowTable, TellsOneOutageOnceAndKeepsWhatWasTyped) {
    Bind();
    Type(ValueId(101), "9");
    m_drive.fails = [](const QString&) { return true; };
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure\n\nThe same happened with:\n102 Count");
    EXPECT_FALSE(m_rows.Reread(1, 2));
    EXPECT_TRUE(Text(ValueId(101)) == "9" && IsChanged(101));
    m_drive.fails = nullptr;
    m_drive.unreadable.insert(201);
    m_boxes.Expect("Reading parameter 2.01 Switch failed: simulated failure");
    EXPECT_FALSE(Bind());
    Choose("Off");
    EXPECT_TRUE(IsChanged(201)) << "the first choice of an unread list is a choice";
}

TEST_F(RowTable, HasNothingToTypeIntoWithoutADrive) {
    Bind();
    Type(ValueId(101), "9");
    m_rows.Unbind();
    EXPECT_EQ(Text(ValueId(101)) + Text(UnitId(101)) + Text(ValueId(201)) + Text(ValueId(301)), "");
    EXPECT_FALSE(m_window.GetDlgItem(ValueId(101))->isEnabled() || Switch().isEnabled() || IsChanged(101));
    EXPECT_TRUE(m_rows.Write());
    EXPECT_TRUE(Bind());
    EXPECT_TRUE(m_window.GetDlgItem(ValueId(101))->isEnabled() && Switch().isEnabled());
}

TEST_F(RowTable, StartsTheUpdateWhenTheTableSaysSo) {
    for (const auto& [update, expected] :
         {std::pair{UpdateWhen::AllRead, "110"}, {UpdateWhen::AllFound, "100"}, {UpdateWhen::Always, "111"}}) {
        const PageRows rows{.layout = 1, .groups = kGroups, .update = update};
        const CRowTable table(m_window, rows);
        QString starts;
        for (const auto& [bound, missing] : {std::pair{true, ""}, {true, "missing"}, {false, ""}})
            starts += table.StartsUpdate(bound, missing) ? '1' : '0';
        EXPECT_EQ(starts, expected);
    }
}

TEST_F(RowTable, TakesItsTextsFromTheConfigurableFile) {
    QFile file(ParamsFiles().Directory() + "/KRT550ConfigurableAssistant.txt");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("VAN\t201\t2\tFast\nVAN\t201\t0\tSlow\n");
    file.close();
    CRowTable rows(m_window, kRows, TextSource::ConfigurableFile);
    EXPECT_TRUE(rows.Bind(&m_drive.Root(), errors));
    EXPECT_EQ(Switch().currentText(), "Slow");
    m_drive.TakeLog();
    Choose("Fast");
    EXPECT_TRUE(rows.Write());
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 201=2", "read 201"}));
    EXPECT_EQ(Switch().currentText(), "Fast");
}

} // namespace
} // namespace krt550
