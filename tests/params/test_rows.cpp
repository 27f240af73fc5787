#include "tests/params/row_fixture.h"

#include "hostlib/tolvbo32/parameter.h"

namespace krt550 {
namespace {

TEST_F(RowFixture, AnEditRowShowsNameValueUnitAndLimits) {
    m_drive.words[101] = static_cast<quint16>(-25);
    MarkChanged(101);
    EXPECT_TRUE(BindEdit(101));
    EXPECT_EQ(label.text(), "101 Motor speed") << "the text file's name comes first";
    EXPECT_EQ(edit.text(), "-2.5");
    EXPECT_EQ(unit.text(), "rpm");
    EXPECT_EQ(minimum.text() + " " + maximum.text(), "-10.00 10.00");
    EXPECT_FALSE(IsChanged(101));
    EXPECT_EQ(m_drive.TakeLog(), QStringList{"read 101"}) << "one read";
}

TEST_F(RowFixture, AMissingParameterDisablesTheRowAndFailsNothing) {
    label.setText("Speed limit");
    unit.setText("rpm");
    EXPECT_TRUE(BindEdit(999));
    EXPECT_EQ(parameter, nullptr);
    EXPECT_FALSE(edit.isEnabled());
    EXPECT_EQ(unit.text(), "");
    EXPECT_EQ(label.text(), "Speed limit");
    dropDown.addItem("left over");
    EXPECT_TRUE(BindList(998));
    EXPECT_FALSE(dropDown.isEnabled());
    EXPECT_EQ(dropDown.count(), 0);
    EXPECT_EQ(errors, "- Parameter 999 not found from drive.\n\nUnable to use the specified parameter.\n"
                      "- Parameter 998 not found from drive.\n\nUnable to use the specified parameter.\n");
}

// 0, or a list's first entry, would be taken for what the drive has.
TEST_F(RowFixture, ARowThatCannotBeReadShowsNoValueAndFails) {
    m_drive.unreadable = {101, 201};
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure\n\nThe same happened with:\n201 Switch");
    const FailurePass pass;
    EXPECT_FALSE(BindEdit(101));
    EXPECT_EQ(edit.text() + unit.text(), "rpm");
    EXPECT_FALSE(BindDisplayRow(&m_drive.Root(), parameter, 101, nullptr, &maximum, errors, nullptr));
    EXPECT_EQ(maximum.text(), "");
    EXPECT_FALSE(BindList(201));
    EXPECT_EQ(Choices(), (QStringList{"Off", "On"}));
    EXPECT_EQ(dropDown.currentIndex(), -1);
    EXPECT_FALSE(IsChanged(101) || IsChanged(201));
}

TEST_F(RowFixture, AListRowOffersItsChoicesInOrder) {
    struct {
        quint16 reg;
        quint16 word;
        QStringList choices;
        QString selected;
    } const cases[] = {
        {201, 2, {"Off", "On"}, "On"},               // without the excluded entry
        {201, 1, {"Off", "On", "1"}, "1"},           // even when the drive holds just that
        {201, 7, {"Off", "On", "7"}, "7"},           // a value without text
        {301, 1, {"Three", "One", "Twenty"}, "One"}, // file order inside a group of sixteen
        {301, 3, {"Three", "One", "Twenty"}, "Three"},
        {302, 5, {"Five", "Forty"}, "Five"}, // groups in ascending order
        {302, 6, {"Five", "Forty", "6"}, "6"},
    };
    for (const auto& c : cases) {
        m_drive.words[c.reg] = c.word;
        EXPECT_TRUE(BindList(c.reg)) << c.reg;
        EXPECT_EQ(Choices(), c.choices) << c.reg;
        EXPECT_EQ(dropDown.currentText(), c.selected) << c.reg;
    }
    EXPECT_EQ(errors, "");
}

TEST_F(RowFixture, ADisplayRowShowsTheNameAlone) {
    CParameter* shown = nullptr;
    EXPECT_TRUE(BindDisplayRow(&m_drive.Root(), shown, 101, &label, &maximum, errors, &unit));
    EXPECT_EQ(label.text() + "|" + maximum.text() + "|" + unit.text(), "Motor speed|0.0|rpm");
    CParameter* given = shown;
    EXPECT_TRUE(BindDisplayRow(&m_drive.Root(), given, 999, nullptr, &maximum, errors, nullptr)) << "given: no look-up";
    EXPECT_EQ(errors, "");
}

TEST_F(RowFixture, WritesOnlyMarkedRows) {
    ASSERT_TRUE(BindEdit(101));
    m_drive.TakeLog();
    edit.setText("3,5");
    EXPECT_TRUE(WriteRow(parameter, &edit, false)) << "not marked";
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    MarkChanged(101);
    EXPECT_TRUE(WriteRow(parameter, &edit, false));
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 101=35", "read 101"}));
    EXPECT_EQ(edit.text(), "3.5");
    EXPECT_FALSE(IsChanged(101));
    EXPECT_TRUE(WriteRow(parameter, &edit, true)) << "forced";
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 101=35", "read 101"}));
    edit.clear();
    MarkChanged(101);
    EXPECT_TRUE(WriteRow(parameter, &edit, false)) << "an empty edit is nothing to write";
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    EXPECT_TRUE(WriteRow(nullptr, &edit, true));
}

TEST_F(RowFixture, ARefusedWriteIsReportedOnceAndStaysMarked) {
    struct {
        QString text;
        bool unwritable;
        QString box;
    } const cases[] = {
        {"11", false, "For parameter 101 given value was invalid.\nPlease input valid value."},
        {"3x", false, "For parameter 101 \"3x\" cannot be used.*"},
        {"4", true, "Writing parameter 1.01 Speed failed: simulated failure"},
    };
    ASSERT_TRUE(BindEdit(101));
    for (const auto& c : cases) {
        edit.setText(c.text);
        MarkChanged(101);
        m_drive.unwritable.clear();
        if (c.unwritable)
            m_drive.unwritable.insert(101);
        m_boxes.Expect(c.box);
        EXPECT_FALSE(WriteRow(parameter, &edit, false));
        EXPECT_TRUE(IsChanged(101)) << "the next Apply tries again";
    }
    m_drive.unwritable.clear();
    m_drive.unreadable.insert(101);
    edit.setText("4");
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
    EXPECT_FALSE(WriteRow(parameter, &edit, false)) << "written, but not read back";
    EXPECT_FALSE(IsChanged(101));
}

TEST_F(RowFixture, WritesAChoiceByItsTextInTheFileOrInTheDrive) {
    struct {
        quint16 reg;
        const char* choice;
        QString write;
    } const cases[] = {
        {201, "On", "write 201=2"},
        {301, "Three", "write 301=3"}, // the file's text, not the drive's
        {301, "x", "write 301=1"},     // no text of the file: the drive's
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(BindList(c.reg));
        m_drive.TakeLog();
        if (dropDown.findText(c.choice) < 0)
            dropDown.addItem(c.choice);
        dropDown.setCurrentText(c.choice);
        MarkChanged(parameter->GetRegister());
        EXPECT_TRUE(WriteRow(parameter, &dropDown, false));
        EXPECT_EQ(m_drive.TakeLog().join(';'), c.write + ";read " + QString::number(c.reg));
    }
    ASSERT_TRUE(BindList(301));
    m_boxes.Expect("Parameter 3.01 Texts: 20 is not one of its values.");
    dropDown.setCurrentText("Twenty");
    EXPECT_FALSE(WriteRow(parameter, &dropDown, true));
}

} // namespace
} // namespace krt550
