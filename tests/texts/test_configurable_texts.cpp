// The file behind the configurable assistant.
#include "tests/texts/text_fixture.h"

namespace krt550 {
namespace {

TEST_F(TextFixture, ConfigurableNameIsTheFirstTextOfTheLastLine) {
    WriteConfigurable("NAME\tFirst\nNAME\t\t\tCrane and hoist\tignored\nNAME\t\t\nname\tno\nNAME\n");
    EXPECT_EQ(m_store.GetConfigurableName(), U("Crane and hoist"));
}

TEST_F(TextFixture, ConfigurableRows) {
    WriteConfigurable("cap\t1\t2001\t5\nCAP\t3\t2002\t\t\ttip\nCAP\t21\t9902\t4\tMode\ttip\thelp\tsurplus\t\n"
                      "CAP\t5\tx\t1\nCAP\t6\t2003\t1\tCaption\ttip\nCAP\t6\t2004\t\tNew\nCAP\n");
    const std::pair<int, ConfigurableRow> rows[] = {
        {3, {2002, {}, {}, U("tip"), {}}},
        {21, {9902, U("4"), U("Mode"), U("tip"), U("help")}},
        {5, {0, U("1"), {}, {}, {}}},
        {6, {2004, {}, U("New"), {}, {}}},
    };
    for (const auto& [number, expected] : rows) {
        ConfigurableRow row;
        EXPECT_TRUE(m_store.GetConfigurableRow(number, row)) << number;
        EXPECT_EQ(row, expected) << number;
    }
    ConfigurableRow row;
    EXPECT_FALSE(m_store.GetConfigurableRow(1, row));
    EXPECT_FALSE(m_store.GetConfigurableRow(0, row));
}

TEST_F(TextFixture, ConfigurableValueTextsAreTablesOfTheirOwn) {
    WriteWizardTexts("VAN\t1201\t1\tfrom the other file\n");
    WriteConfigurable("VAN\t\t1201\t\t40\t\tUp\nVAN\t1201\t1\tDown\t\tAb\nVAN\t1201\t40\tUpwards\n");
    EXPECT_TRUE(m_store.HasConfigurableValueTexts(U("1201")));
    EXPECT_FALSE(m_store.HasConfigurableValueTexts(U("1202")));
    QList<ValueText> texts;
    EXPECT_TRUE(m_store.GetAllConfigurableValueTexts(U("1201"), texts));
    EXPECT_EQ(texts, (QList<ValueText>{{1, U("Down")}, {40, U("Upwards")}}));
    QString text;
    EXPECT_TRUE(m_store.GetConfigurableValueText(U("1201"), 1, text));
    EXPECT_EQ(text, U("Down"));
    EXPECT_FALSE(m_store.GetConfigurableValueText(U("1201"), 2, text));
    EXPECT_EQ(text, U("N/A"));
}

} // namespace
} // namespace krt550
