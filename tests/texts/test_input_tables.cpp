// Connections of digital and analogue inputs.
#include "tests/texts/text_fixture.h"

namespace krt550 {
namespace {

class InputTableTest : public TextFixture {
protected:
    InputTableTest() {
        WriteWizardTexts("DI\t1002\t1\t\t3\t4\t5\t6\t7\t8\t\t0\tReverse\tRueckwaerts\n"
                         "DI\t1001\t1\t2\n"
                         "DI\t1002\t11\t12\t\t\t\t\t\t\t\t65535\tTwice\n"
                         "DI\t\n"
                         "AI\t1103\t7101\t1\t2\t\t4\t9\tReference\n"
                         "AI\t1104\t\t1\t2\t3\t4\n"
                         "AI\t1105\t7102\t1\t1\t1\t1\t0\tReference\n");
    }
};

TEST_F(InputTableTest, FindsAnEntryBySelectingValue) {
    const struct {
        bool digital;
        quint16 selector;
        int input;
        quint16 value;
        const char* name; ///< null: no entry
        int target = kNoWord;
        int disconnect = kNoWord;
    } cases[] = {
        {true, 1002, 3, 3, "Reverse", kNoWord, 0},
        {true, 1002, 8, 8, "Reverse", kNoWord, 0},
        {true, 1002, 2, 12, "Twice"},
        {true, 1001, 2, 2, "? (N/A)"},
        {true, 1002, 2, 65535, nullptr},
        {true, 1001, 3, 65535, nullptr},
        {true, 1000, 1, 1, nullptr},
        {true, 1002, 0, 1, nullptr},
        {true, 1002, -1, 1, nullptr},
        {true, 1002, 9, 8, nullptr},
        {false, 1103, 2, 2, "Reference", 7101, 9},
        {false, 1103, 3, 65535, nullptr},
        {false, 1103, 1, 2, nullptr},
        {false, 1104, 1, 1, "? (N/A)"},
        {false, 1103, 5, 9, nullptr},
    };
    for (const auto& test : cases) {
        const CConnectionTable& table = test.digital ? m_store.GetDIConnections() : m_store.GetAIConnections();
        const int found = table.Find(test.selector, test.input, test.value);
        ASSERT_EQ(found != CConnectionTable::kNone, test.name != nullptr) << &test - cases;
        if (!test.name)
            continue;
        EXPECT_EQ(table[found].name, U(test.name)) << &test - cases;
        EXPECT_EQ(table[found].target, test.target) << &test - cases;
        EXPECT_EQ(table[found].disconnect, test.disconnect) << &test - cases;
        EXPECT_EQ(table[found].SelectOf(test.input), test.value) << &test - cases;
    }
}

} // namespace
} // namespace krt550
