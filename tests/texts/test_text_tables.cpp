// Columns, overwriting and the order of values.
#include "hostlib/text_files/text_fields.h"
#include "wizard/texts/wizard_tables.h"

namespace krt550 {
namespace {

TEST(TextTableTest, ColumnsOfALine) {
    const struct {
        std::vector<const char*> lines;
        std::vector<std::string_view> columns;
    } cases[] = {
        {{"TOOLTIP\t5\tA\t\t"}, {"A", "A", "A", "A"}},
        {{"TOOLTIP\t5\t\t\tA\tB"}, {"A", "B", "A"}},
        {{"TOOLTIP\t\t5\tA\t\tC"}, {"A", "A", "C"}},
        {{"TOOLTIP\t5\tA\tB\tC", "TOOLTIP\t5\tD"}, {"D", "B", "C"}},
        {{"TOOLTIP\t5\tA\t\tC", "TOOLTIP\t5\tD"}, {"D", "A", "C"}},
        {{"TOOLTIP\t5\tA", "TOOLTIP\t5\tlonger\tB"}, {"longer", "B"}},
        {{"TOOLTIP\t5\tA\tB", "TOOLTIP\t5\t\t"}, {"A", "B"}},
        {{"TOOLTIP\t5", "TOOLTIP\t5\t", "TOOLTIP", "tooltip\t5\tA", "TOOLTIP \t5\tA", " TOOLTIP\t5\tA"}, {""}},
    };
    for (const auto& test : cases) {
        WizardTables tables;
        for (const char* line : test.lines)
            ReadWizardLine(tables, line);
        for (std::size_t column = 0; column < test.columns.size(); ++column)
            EXPECT_EQ(tables.toolTips.Find(5, static_cast<int>(column)), test.columns[column])
                << test.lines[0] << " column " << column;
    }
}

TEST(TextTableTest, ValuesOfManyRegistersStayApart) {
    CTextArena arena;
    CValueTextTable table(arena);
    std::map<std::pair<quint16, quint16>, std::string> expected;
    std::map<quint16, std::vector<quint16>> order;
    std::mt19937 random(7);
    for (int line = 0; line < 50'000; ++line) {
        const auto reg = static_cast<quint16>(random() % 700 * 93);
        const auto value = static_cast<quint16>(random() % 40 * (line % 3 == 0 ? 1638 : 1));
        const std::string text = std::string(random() % 40 + 1, 'a') + std::to_string(line);
        if (expected.insert_or_assign({reg, value}, text).second)
            order[reg].push_back(value);
        const std::string fields = std::to_string(reg) + '\t' + std::to_string(value) + '\t' + text;
        CTextTokenizer tokens(fields, '\t');
        table.ReadLine(tokens);
    }
    for (const auto& [key, text] : expected)
        ASSERT_EQ(table.Find(key.first, key.second), text);
    for (auto& [reg, values] : order) {
        std::ranges::stable_sort(values, {}, [](quint16 value) { return value / 16 % 17; });
        ASSERT_EQ(table.ValuesOf(reg), values) << reg;
    }
    EXPECT_FALSE(table.HasValues(1));
    EXPECT_TRUE(table.Find(93, 50'001).empty());
}

} // namespace
} // namespace krt550
