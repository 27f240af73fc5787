// Connections of digital and analogue inputs.
#include "tests/texts/text_fixture.h"

namespace krt550 {
namespace {

QString U(const char* text) {
    return QString::fromUtf8(text);
}

class InputTableTest : public TextFixture {
protected:
    InputTableTest() {
        WriteWizardTexts("DI\t1002\t1\t\t3\t4\t5\t6\t7\t8\t\t0\tReverse\tRueckwaerts\n"
                         "DI\t1001\t1\t2\n"
                         "DI\t1002\t11\t12\t\t\t\t\t\t\t\tTwice\n"
                         "DI\t\n"
                         "AI\t1103\t7101\t1\t2\t\t4\t9\tReference\n"
                         "AI\t1104\t\t1\t2\t3\t4\n"
                         "AI\t1105\t7102\t1\t1\t1\t1\t0\tReference\n");
    }
};

TEST_F(InputTableTest, SelectorsAndConnectionsComeInFileOrder) {
    EXPECT_EQ(m_store.GetDIRegisters(), (QList<quint16>{1002, 1001}));
    EXPECT_EQ(m_store.GetAIRegisters(), (QList<quint16>{1103, 1104, 1105}));
    EXPECT_EQ(m_store.GetDIConnections(1002, 1), (QList<ValueText>{{1, U("Reverse")}, {11, U("? (N/A)")}}));
    EXPECT_EQ(m_store.GetAIConnections(1103, 3), QList<ValueText>());
    EXPECT_EQ(m_store.GetAIConnections(1104, 4), (QList<ValueText>{{4, U("? (N/A)")}}));
    for (const int input : {-1, 0, 9})
        EXPECT_EQ(m_store.GetDIConnections(1002, input), QList<ValueText>()) << input;
}

TEST_F(InputTableTest, EntriesBySelectingValue) {
    const struct {
        bool digital;
        quint16 selector;
        int input;
        quint16 value;
        const char* name; ///< null: no entry
    } cases[] = {
        {true, 1002, 3, 3, "Reverse"},    {true, 1002, 2, 65535, nullptr},  {true, 1001, 2, 2, "? (N/A)"},
        {true, 1001, 3, 65535, nullptr},  {true, 1002, 8, 8, "Reverse"},    {true, 1000, 1, 1, nullptr},
        {false, 1103, 2, 2, "Reference"}, {false, 1103, 3, 65535, nullptr}, {false, 1104, 1, 1, "? (N/A)"},
        {false, 1103, 5, 9, nullptr},
    };
    for (const auto& test : cases) {
        QString name = U("before");
        const bool found = test.digital ? m_store.GetDIEntryName(test.selector, test.input, test.value, name)
                                        : m_store.GetAIEntryName(test.selector, test.input, test.value, name);
        EXPECT_EQ(found, test.name != nullptr) << &test - cases;
        EXPECT_EQ(name, U(test.name ? test.name : "before")) << &test - cases;
    }
    QString name;
    quint16 target = 0;
    EXPECT_TRUE(m_store.GetAIEntry(1103, 1, 1, name, target));
    EXPECT_EQ(target, 7101);
    EXPECT_TRUE(m_store.GetAIEntry(1104, 1, 1, name, target));
    EXPECT_EQ(target, 65535);
    EXPECT_FALSE(m_store.GetAIEntry(1103, 1, 2, name, target));
}

TEST_F(InputTableTest, EntriesByName) {
    const struct {
        bool digital;
        const char* name;
        int input;
        bool select;
        int selector; ///< 0: nothing to write
        int value;
    } cases[] = {
        {true, "Reverse", 4, true, 1002, 4},  {true, "Reverse", 4, false, 1002, 0},
        {true, "Reverse", 2, true, 0, 0},     {true, "reverse", 4, true, 0, 0},
        {true, "Rueckwaerts", 4, true, 0, 0}, {false, "Reference", 1, true, 1103, 1},
        {false, "Reference", 3, true, 0, 0},  {false, "Reference", 1, false, 1103, 9},
        {false, "? (N/A)", 1, true, 0, 0},
    };
    for (const auto& test : cases) {
        quint16 selector = 0;
        quint16 value = 0;
        const QString name = U(test.name);
        const bool found = test.digital ? m_store.GetDIEntryByName(name, test.input, test.select, selector, value)
                                        : m_store.GetAIEntryByName(name, test.input, test.select, selector, value);
        EXPECT_EQ(found, test.selector != 0) << &test - cases;
        EXPECT_EQ(selector, test.selector) << &test - cases;
        EXPECT_EQ(value, test.value) << &test - cases;
    }
}

} // namespace
} // namespace krt550
