#include "tests/params/row_fixture.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/preset_controls.h"

namespace krt550 {
namespace {

using Rows = RowFixture;

TEST_F(Rows, ShowNameValueUnitAndLimits) {
    EXPECT_EQ(Text(LabelId(101)) + "|" + Text(LabelId(102)), "101|Count") << "until they are bound";
    m_drive.words[101] = static_cast<quint16>(-25);
    EXPECT_TRUE(Bind());
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 201", "read 101", "read 102", "read 301"})) << "once each, by rank";
    EXPECT_EQ(Text(LabelId(101)) + "|" + Text(LabelId(301)), "101 Motor speed|Texts") << "the text file's name first";
    EXPECT_EQ(Text(ValueId(101)) + "|" + Text(UnitId(101)), "-2.5|rpm");
    EXPECT_EQ(Text(MinimumId(101)) + "|" + Text(MaximumId(101)), "-10.00|10.00");
    EXPECT_TRUE(m_window.GetDlgItem(UnitId(102)));
    EXPECT_FALSE(m_window.GetDlgItem(MinimumId(102)) || m_window.GetDlgItem(UnitId(201)));
    EXPECT_EQ(Text(ValueId(201)), "Off");
    for (const int id : {LabelId(999), ValueId(999), kSlotIds.value, kSlotIds.list})
        EXPECT_FALSE(IsShown(id)) << id;
    m_drive.words[301] = 3;
    Pass();
    EXPECT_EQ(Text(ValueId(301)), "Three") << "a display follows the drive where the table says so";
}

TEST_F(Rows, AreDisabledWithoutTheirParameterWhichFailsNothing) {
    Bind();
    errors.clear();
    Row(102).SetRegister(998);
    Row(301).SetRegister(997);
    EXPECT_TRUE(Bind());
    EXPECT_EQ(Text(LabelId(102)) + Text(LabelId(301)) + Text(ValueId(301)), "102 CountTexts");
    EXPECT_FALSE(Edit(102).isEnabled() || Switch().currentIndex() < 0);
    EXPECT_EQ(errors, "- Parameter 998 not found from drive.\n\nUnable to use the specified parameter.\n"
                      "- Parameter 997 not found from drive.\n\nUnable to use the specified parameter.\n"
                      "- Parameter 999 not found from drive.\n\nUnable to use the specified parameter.\n");
}

TEST_F(Rows, OfferTheirChoicesInOrder) {
    struct {
        quint16 reg;
        quint16 word;
        QString choices;
        QString selected;
    } const cases[] = {
        {201, 2, "Off On", "On"},            // without the excluded entry
        {201, 1, "Off On 1", "1"},           // even when the drive holds just that
        {201, 7, "Off On 7", "7"},           // a value without text
        {301, 1, "Three One Twenty", "One"}, // file order inside a group of sixteen
        {302, 5, "Five Forty", "Five"},      // groups in ascending order
        {302, 6, "Five Forty 6", "6"},
    };
    for (const auto& c : cases) {
        m_drive.words[c.reg] = c.word;
        ListSlot().SetRegister(c.reg);
        EXPECT_TRUE(ListSlot().Bind(&m_drive.Root(), errors)) << c.reg;
        const auto* list = m_window.GetControl<QComboBox>(kListIds.value);
        QStringList choices;
        for (int i = 0; i < list->count(); ++i)
            choices.append(list->itemText(i));
        EXPECT_EQ(choices.join(' '), c.choices) << c.reg;
        EXPECT_EQ(list->currentText(), c.selected) << c.reg;
    }
}

TEST_F(Rows, AreWrittenByRankAndOnlyWhatWasChanged) {
    Bind();
    m_drive.TakeLog();
    EXPECT_TRUE(m_rows.Write());
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    Type(101, "3,5");
    Type(102, "7");
    Choose(&Switch(), "On");
    EXPECT_TRUE(m_rows.Write());
    EXPECT_EQ(m_drive.TakeLog(),
              (QStringList{"write 101=35", "read 101", "write 201=2", "read 201", "write 102=7", "read 102"}));
    EXPECT_EQ(Text(ValueId(101)), "3.5");
    Type(101, "");
    EXPECT_TRUE(m_rows.Write()) << "an empty edit is nothing to write";
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    EXPECT_FALSE(IsChanged(101));
    for (const auto& [choice, write] : {std::pair{"Three", "write 301=3"}, // the file's text, not the drive's
                                        {"x", "write 301=1"}}) {           // no text of the file: the drive's
        ListSlot().SetRegister(301);
        ListSlot().Bind(&m_drive.Root(), errors);
        auto* list = m_window.GetControl<QComboBox>(kListIds.value);
        list->addItem("x");
        m_drive.TakeLog();
        Choose(list, choice);
        EXPECT_TRUE(m_rows.Write());
        EXPECT_EQ(m_drive.TakeLog(), (QStringList{write, "read 301"}));
    }
}

TEST_F(Rows, ReportARefusalOnceAndStayMarked) {
    Bind();
    struct {
        QString text;
        bool unwritable;
        QString box;
    } const cases[] = {
        {"11", false, "For parameter 101 given value was invalid.\nPlease input valid value."},
        {"3x", false, "For parameter 101 \"3x\" cannot be used.*"},
        {"4", true, "Writing parameter 1.01 Speed failed: simulated failure"},
    };
    for (const auto& c : cases) {
        Type(101, c.text);
        if (c.unwritable)
            m_drive.unwritable.insert(101);
        m_boxes.Expect(c.box);
        EXPECT_FALSE(m_rows.Write());
        EXPECT_TRUE(IsChanged(101)) << "the next Apply tries again";
    }
    m_drive.unwritable.clear();
    m_drive.unreadable.insert(101);
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
    EXPECT_FALSE(m_rows.Write()) << "written, but not read back";
    EXPECT_FALSE(IsChanged(101));
}

TEST_F(Rows, AreMarkedByAPersonOnly) {
    int changes = 0;
    Row(201).SetChangeHandler([&changes] { ++changes; });
    Bind();
    EXPECT_FALSE(IsChanged(101) || IsChanged(201)) << "filling them is no change";
    m_drive.words[101] = 15;
    Type(101, "9");
    EXPECT_TRUE(IsChanged(101));
    EXPECT_TRUE(m_rows.Reread(0, 4));
    EXPECT_EQ(Text(ValueId(101)), "1.5");
    EXPECT_FALSE(IsChanged(101)) << "results of a run are not the user's";

    for (const auto& [choice, changed] : {std::pair{"Off", false}, {"On", true}, {"Off", false}, {"On", true}}) {
        Choose(&Switch(), choice);
        EXPECT_EQ(IsChanged(201), changed) << choice;
    }
    EXPECT_EQ(changes, 3) << "changed, taken back, changed";
    m_drive.unwritable.insert(201);
    m_boxes.Expect("Writing parameter 2.01 Switch failed: simulated failure");
    EXPECT_FALSE(m_rows.Write());
    Choose(&Switch(), "Off");
    EXPECT_TRUE(IsChanged(201)) << "what the drive holds now is not known";
    MarkChanged(4711);
    m_rows.Unmark();
    EXPECT_TRUE(IsChanged(4711) && !IsChanged(201)) << "a window forgets its own rows only";
    Type(101, "9");
    Bind();
    EXPECT_FALSE(IsChanged(101)) << "a load forgets what was typed";
}

// 0, or a list's first entry, would be taken for what the drive has.
TEST_F(Rows, ShowNothingThatWasNotReadAndTellOneOutageOnce) {
    m_drive.unreadable = {101, 102, 201, 301};
    m_boxes.Expect("Reading parameter 2.01 Switch failed: simulated failure\n\nThe same happened with:\n"
                   "101 Speed\n102 Count\n301 Texts");
    EXPECT_FALSE(Bind());
    EXPECT_EQ(Text(ValueId(101)) + Text(ValueId(102)) + Text(ValueId(201)) + Text(ValueId(301)), "");
    EXPECT_EQ(Text(UnitId(101)), "rpm");
    EXPECT_EQ(Switch().count(), 2);
    Edit(101).setFocus();
    Edit(102).setFocus(); // nothing to be judged in what was not read
    Choose(&Switch(), "Off");
    EXPECT_TRUE(IsChanged(201)) << "the first choice of an unread list is a choice";
    Type(101, "9");
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure\n\nThe same happened with:\n102 Count");
    EXPECT_FALSE(m_rows.Reread(1, 2));
    EXPECT_TRUE(Text(ValueId(101)) == "9" && IsChanged(101)) << "nothing typed is lost";
    {
        const LossMemory::Scope told(LossMemory::Since::Now);
        m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
        for (int tries = 0; tries < 2; ++tries)
            EXPECT_FALSE(m_rows.Reread(1, 1));
        m_boxes.Verify();
        m_drive.unreadable.erase(201);
        EXPECT_TRUE(m_rows.Reread(0, 1)) << "the drive answers, and what is lost then is another loss";
        m_boxes.Expect("Reading parameter 1.02 Count failed: simulated failure");
        EXPECT_FALSE(m_rows.Reread(2, 1));
    }

    const FailurePass pass;
    m_boxes.Expect("no text file");
    m_boxes.Expect("really?");
    m_boxes.Expect("really?");
    for (int query = 0; query < 2; ++query) {
        EXPECT_TRUE(ShowMessageBox("no text file", MessageIcon::Stop));
        EXPECT_TRUE(ShowMessageBox("really?", MessageIcon::Stop, MessageButtons::OkCancel)) << "questions are asked";
    }
}

TEST_F(Rows, HaveNothingToTypeIntoWithoutADrive) {
    Bind();
    Type(101, "9");
    m_rows.Unbind();
    EXPECT_EQ(Text(ValueId(101)) + Text(UnitId(101)) + Text(ValueId(201)) + Text(ValueId(301)), "");
    EXPECT_FALSE(Edit(101).isEnabled() || Switch().isEnabled() || IsChanged(101));
    EXPECT_TRUE(m_rows.Write());
    EXPECT_TRUE(Bind());
    EXPECT_TRUE(Edit(101).isEnabled() && Switch().isEnabled());
}

TEST_F(Rows, KeepTheirValueWhenAPresetIsRefused) {
    CTestWindow window(1, [](const ControlLayout& control, QWidget* parent) -> QWidget* {
        return control.id == ValueId(201) ? new CPresetComboBox(parent) : nullptr;
    });
    ASSERT_TRUE(window.Create());
    CRowTable rows{window, kRows, TextSource::ConfigurableFile};
    EXPECT_TRUE(rows.Bind(&m_drive.Root(), errors));
    auto* list = window.GetControl<CPresetComboBox>(ValueId(201));
    list->SetParameter(m_drive.Root().FindChildByRegister("201"));
    list->SetPreset("8");
    m_boxes.Expect("Parameter 2.01 Switch: 8 is not one of its values.");
    list->ChangeToPreset();
    EXPECT_EQ(list->currentText(), "Slow");
    list->clear();
    list->SetPreset("2");
    m_boxes.Expect("Parameter 201 valuelist not found from drive.\n\nUnable to use the specified parameter.");
    list->ChangeToPreset();
}

} // namespace
} // namespace krt550
