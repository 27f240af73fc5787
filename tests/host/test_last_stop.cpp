#include "host/last_stop.h"
#include "host/line_writer.h"
#include "hostlib/tolvbo32/clock.h"
#include "tests/support/fake_drive.h"

#include <fcntl.h>
#include <unistd.h>

namespace krt550 {
namespace {

const QStringList kStop{"write 9906=0", "stop motor"};
const QStringList kGiveBack{"open contactor", "release local control"};

QStringList Times(int times, const QStringList& calls) {
    QStringList all;
    while (times-- > 0)
        all += calls;
    return all;
}

struct Case {
    const char* name;
    bool held = true;
    qint64 turnsForMs = 0;                  ///< after the first stop that reaches the drive
    qint64 deadFromMs = 0, deadUntilMs = 0; ///< the link answers nothing between these
    const char* refuses = "";               ///< the drive refuses calls that begin so
    QStringList calls = {};                 ///< what changes the drive, in its order
    bool safe = true;
    qint64 longestMs = 0;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class LastStop : public testing::TestWithParam<Case> {};

TEST_P(LastStop, LeavesAStandingDriveOrSaysWhyNot) {
    const Case& c = GetParam();
    CSteppedClock clock;
    const ClockScope scope(clock);
    FakeDrive drive(WizardParameters());
    drive.localControl = c.held;
    drive.statusWord = 0;
    qint64 stoppedAt = -1;
    drive.fails = [&](const QString& call) {
        const bool dead = clock.Now() >= c.deadFromMs && clock.Now() < c.deadUntilMs;
        const bool refused = *c.refuses != 0 && call.startsWith(QLatin1String(c.refuses));
        if (call == QLatin1String("stop motor") && !dead && !refused && stoppedAt < 0)
            stoppedAt = clock.Now();
        if (stoppedAt >= 0 && clock.Now() >= stoppedAt + c.turnsForMs)
            drive.statusWord = kStatusStopped;
        return dead || refused;
    };
    QStringList told;
    CLastStop stop(drive, drive, [&](const QString& line) { told.append(line); });
    EXPECT_EQ(stop.Finish(), c.safe) << told.join(QLatin1Char('\n')).toStdString();
    QStringList calls = drive.TakeLog();
    calls.removeAll(QStringLiteral("refresh"));
    EXPECT_EQ(calls, c.calls);
    EXPECT_LE(clock.Now(), c.longestMs);
    EXPECT_EQ(drive.localControl, c.held && !c.safe);
    EXPECT_EQ(!told.isEmpty() && told.last().contains(QLatin1String("E-stop")), c.deadUntilMs > 100'000);
}

INSTANTIATE_TEST_SUITE_P(
    Drives, LastStop,
    testing::Values(
        Case{.name = "notHeld", .held = false}, Case{.name = "standing", .calls = kStop + kGiveBack},
        Case{.name = "rampingDown", .turnsForMs = 600, .calls = Times(3, kStop) + kGiveBack, .longestMs = 700},
        Case{.name = "gapInTheLink", .deadUntilMs = 400, .calls = Times(3, kStop) + kGiveBack, .longestMs = 600},
        Case{
            .name = "serviceModeRefused", .refuses = "write", .calls = kStop + QStringList("write 9906=0") + kGiveBack},
        Case{.name = "contactorRefused", .refuses = "open", .calls = kStop + kGiveBack},
        Case{.name = "neverAnswers",
             .deadUntilMs = 1'000'000,
             .calls = Times(21, kStop),
             .safe = false,
             .longestMs = 5100},
        Case{.name = "keepsLocalControl",
             .refuses = "release",
             .calls = kStop + Times(20, kGiveBack),
             .safe = false,
             .longestMs = 5100}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(LineWriter, LeavesLinesOutRatherThanWaitForAReaderThatDoesNotRead) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    QStringList told;
    CLineWriter writer(ends[1], QStringLiteral("the pipe"), [&](const QString& line) { told.append(line); });
    const QByteArray line(999, 'x');
    for (int i = 0; i < 100; ++i)
        writer.Write(line);
    EXPECT_EQ(told.size(), 1) << told.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(writer.HasFailed());
    QByteArray read(64 * 1024, '\0');
    const auto size = ::read(ends[0], read.data(), size_t(read.size()));
    writer.Write("the end");
    QByteArray rest(200 * 1000, '\0');
    rest.resize(::read(ends[0], rest.data(), size_t(rest.size())));
    const qsizetype lines = (size + rest.size()) / 1000;
    EXPECT_TRUE(rest.endsWith("# " + QByteArray::number(100 - lines) + " lines were left out here\nthe end\n"))
        << rest.right(80).toStdString();
    for (const int end : ends)
        close(end);
}

} // namespace
} // namespace krt550
