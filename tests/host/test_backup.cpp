// Backups: what is written is read back, and what is wrong is named. The commands are tried on a drive that lives on in
// tests/link/play_over_wire.py.
#include "host/backup/backup_file.h"
#include "host/backup/comparison.h"
#include "host/backup/keeping.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "tests/host/tool_run.h"
#include "tests/support/shipped_drive.h"

#include <csignal>

namespace krt550 {
namespace {

constexpr auto kHead = "KRT 550 backup, format 1\nnote: anything\n\nregister\tname\tvalue\tunit\n";

TEST(Backup, ReadsWhatItHasWritten) {
    const std::vector<ParameterDescription> parameters = BackedUp(ShippedParameters());
    ParameterValues values;
    for (const ParameterDescription& parameter : parameters) // the far end of each range, and every sign
        values.values.push_back({parameter.reg, NearestWord(parameter, parameter.minimum)});
    values.values[7].word = 99; // in none of its lists
    values.values.erase(values.values.begin() + 9);
    values.unread = {{parameters[9].reg, QStringLiteral("a reason\tin\ntwo lines")}};
    const QByteArray text = BackupText(values, parameters, {});
    QStringList errors;
    const auto read = ParseBackup(text, QStringLiteral("b"), parameters, errors);
    ASSERT_TRUE(read) << errors.join(u'\n').toStdString();
    EXPECT_EQ(read->unread.size(), 2U);
    EXPECT_TRUE(Compare(values, *read).empty());
    values.values[20].word ^= 1;
    EXPECT_EQ(Compare(values, *read).size(), 1U);
    for (qsizetype length = 0; length < text.size() - 1; length += 97)
        EXPECT_FALSE(ParseBackup(text.left(length), QStringLiteral("b"), parameters, errors)) << length;
}

TEST(Backup, NamesEveryBadLineAndReadsNothingThen) {
    const struct {
        const char* line;
        const char* error; ///< behind "b:5: "; empty: the line is good
    } cases[] = {
        {"99.02\tany name\t240\tV\r", ""},
        {"# a remark", ""},
        {"10.01\t\tTerminals", ""},
        {"99.02\tx\t12.5\tV", "\"12.5\" cannot be used. Please input a whole number"},
        {"99.02\tx\t1e2\tV", "\"1e2\" cannot be used"},
        {"99.02\tx\t9999\tV", "9999 is out of range. It must lie between 5 and 2000 V"},
        {"99.02\tx\t240\trpm", "has the unit \"V\", not \"rpm\""},
        {"10.01\tx\tMoon\t", "\"Moon\" is not one of its values"},
        {"98.99\tx\t1\t", "the drive has no parameter 98.99"},
        {"1.04\tx\t1\trpm", "does not belong into a backup: the drive only shows it"},
        {"99.06\tx\tNormal operation\t", "a command: it starts a service mode"},
        {"98.01\tx\tNot used\t", "98.01 stands here a second time"},
        {"motor\tx\t1\t", "\"motor\" is no register"},
        {"99.02 240 V", "1 fields instead of 4"},
    };
    for (const auto& c : cases) {
        QStringList errors;
        const QByteArray text = kHead + QByteArray(c.line) + "\n98.01\tx\tNot used\t\nend\n";
        const bool isGood = ParseBackup(text, QStringLiteral("b"), ShippedParameters(), errors).has_value();
        const QString told = errors.join(u'\n');
        EXPECT_EQ(isGood, !*c.error) << c.line << ": " << told.toStdString();
        EXPECT_TRUE(told.contains(QLatin1String(c.error)) && (isGood || told.startsWith(QLatin1String("b:"))))
            << c.line << ": " << told.toStdString();
    }
}

// A slow drive, and somebody who presses Ctrl+C in the middle.
TEST(Backup, AnInterruptedRestoreTakesBackWhatItHasWritten) {
    ToolRun tool;
    tool.Write(QStringLiteral("b"),
               QLatin1String(kHead) + QStringLiteral("12.04\t\t5\trpm\n12.05\t\t6\trpm\n12.06\t\t7\trpm\nend\n"));
    tool.Start(QStringLiteral("restore ~/b --yes --drive sim,fault=late-answer:300"));
    ASSERT_TRUE(tool.WaitForOutput(QStringLiteral("12.06 Constant speed 3: 1750 rpm -> 7 rpm")));
    kill(pid_t(tool.process.processId()), SIGINT);
    EXPECT_EQ(tool.Finish(), 1);
    EXPECT_TRUE(tool.errors.contains(QStringLiteral("interrupted\n")) &&
                tool.errors.endsWith(QStringLiteral("The drive holds what it held before.\n")))
        << tool.errors.toStdString();
}

} // namespace
} // namespace krt550
