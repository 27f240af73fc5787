// The file of the application macros. What they do is in the table of the terminals.
#include "tests/drive/scripted_drive.h"

namespace krt550::test {
namespace {

TEST(MacroFile, TellsWhatIsWrongWithItsLines) {
    const struct {
        const char* line;
        const char* error; ///< empty: none
    } lines[] = {
        {"1\t1005\t3", ""},
        {"# comment", ""},
        {"1\t1005", "f:2: 2 fields instead of 3"},
        {"x\t1005\t3", "f:2: bad macro \"x\""},
        {"1\t1o05\t3", "f:2: bad register \"1o05\""},
        {"1\t9999\t3", "f:2: The drive has no parameter 99.99."},
        {"1\t801\t3", "f:2: parameter 8.01 Main status word is read-only"},
        {"1\t1005\t9", "f:2: \"9\" is no value of 10.05 On selector"},
        {"1\t1005\tDI3", "f:2: \"DI3\" is no value of 10.05 On selector"},
        {"1\t1106\t-1", "f:2: \"-1\" is no value of 11.06 Motor potentiometer minimum speed"},
        {"1\t1003\t1\n1\t1003\t2", "f:3: macro 1 names register 1003 twice"},
    };
    for (const auto& [line, error] : lines) {
        QByteArray text = QByteArray("macro\tregister\tvalue\n") + line + "\n2\t1006\t4\n";
        QBuffer file(&text);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList errors;
        EXPECT_EQ(ReadMacros(file, QStringLiteral("f"), WholeDescription(), errors).has_value(), *error == 0) << line;
        EXPECT_EQ(errors.join(u'\n').toStdString(), error);
    }
    for (const char* whole : {"", "macro\tregister\n", "macro\tregister\tvalue\n"}) {
        QByteArray text = whole;
        QBuffer file(&text);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList errors;
        EXPECT_FALSE(ReadMacros(file, QStringLiteral("f"), WholeDescription(), errors)) << whole;
        EXPECT_EQ(errors.size(), 1);
    }
}

} // namespace
} // namespace krt550::test
