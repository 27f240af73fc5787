// Every way in which the program can be made to end while a motor turns under its control: the stop is sent, and the
// program ends only when the motor stands and has been given back. With real processes and the log that they leave.
#include "hostlib/host_drive.h"
#include "tests/host/tool_run.h"

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace krt550 {
namespace {

/// Runs the motor up in step 5, and says so at 40 % of the test. Played faster than in life on a busy machine, the
/// drive would miss the tool.
constexpr const char* kRunMotor =
    "drive 3029 60\ntick 5\npress next\nwait idle\npress 60202\nwait box\nanswer ok\nwait progress 40\n"
    "clear log\nsay It turns\n";

/// Calls of a log from a line on that has `words`, without times and queries of the state.
QStringList CallsFrom(const QStringList& log, const QString& words) {
    QStringList calls;
    for (const QString& line : log) {
        const QString call = line.section(QLatin1Char('\t'), 1).simplified();
        if ((call.contains(words) || !calls.isEmpty()) && !call.startsWith(QLatin1String("ReadWord")))
            calls.append(call);
    }
    return calls;
}

/// The log ends with a motor that was stopped, seen standing and given back, in this order.
void ExpectStopped(const QStringList& log) {
    const QStringList calls = CallsFrom(log, QStringLiteral("StartMotor"));
    const qsizetype stop = calls.indexOf(QStringLiteral("StopMotor ok"));
    const qsizetype contactor = calls.lastIndexOf(QStringLiteral("OpenContactor ok"));
    const qsizetype release = calls.lastIndexOf(QStringLiteral("ReleaseLocalControl ok"));
    EXPECT_TRUE(stop > 0 && contactor > stop && release > contactor) << calls.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(calls.contains(QStringLiteral("WriteWord 9906 0 ok")));
}

class Endings : public testing::Test {
protected:
    void StartMotor(const QString& more = {}) {
        m_tool.Write(QStringLiteral("run.play"), QString::fromUtf8(kRunMotor) + QLatin1String("wait 600 within 600\n"));
        m_tool.Start(QLatin1String("--speed 10 --play ~/run.play --log ~/log --shots ~ ") + more);
        ASSERT_TRUE(m_tool.WaitForOutput(QStringLiteral("It turns")));
    }
    void Send(int signal) { ASSERT_EQ(kill(pid_t(m_tool.process.processId()), signal), 0); }
    void ExpectStopped() { krt550::ExpectStopped(m_tool.Lines(QStringLiteral("log"))); }

    ToolRun m_tool;
};

class EndingSignals : public Endings, public testing::WithParamInterface<int> {};

TEST_P(EndingSignals, StopTheMotorBeforeTheProgramEnds) {
    StartMotor(QStringLiteral("--drive sim:S3"));
    // Again, as an impatient person does, until the program answers: on a busy machine two at once may arrive as one.
    do
        Send(GetParam());
    while (!m_tool.HasComplained(20));
    EXPECT_EQ(m_tool.Finish(), 1);
    ExpectStopped();
    EXPECT_TRUE(m_tool.errors.contains(QLatin1String("waiting until"))) << m_tool.errors.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Signals, EndingSignals, testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU),
                         [](const auto& test) { return std::string(sigabbrev_np(test.param)); });

TEST_F(Endings, ACrashSendsTheStopAndStaysACrash) {
    StartMotor();
    Send(SIGABRT);
    EXPECT_TRUE(m_tool.process.waitForFinished());
    EXPECT_EQ(m_tool.process.exitStatus(), QProcess::CrashExit);
    const QStringList calls = CallsFrom(m_tool.Lines(QStringLiteral("log")), QStringLiteral("WriteWord 9906 0"));
    EXPECT_TRUE(calls.contains(QStringLiteral("StopMotor ok")));
}

TEST_F(Endings, APlayThatEndsOrFailsWaitsForTheMotor) {
    for (const char* last : {"", "expect title Nothing\n"}) {
        const bool fails = *last != 0;
        EXPECT_EQ(m_tool.Play(QString::fromUtf8(kRunMotor) + QLatin1String(last),
                              QStringLiteral("--drive sim:S3 --log ~/log")),
                  fails ? 1 : 0)
            << m_tool.errors.toStdString();
        ExpectStopped();
        EXPECT_TRUE(m_tool.output.contains(QLatin1String("RunWizard returned 0")));
    }
}

// The reader of the program's output goes away: the motor's run does not depend on it.
TEST_F(Endings, AReaderThatGoesAwayIsToldAndEndsNothing) {
    const QByteArray pipe = m_tool.Path(QStringLiteral("pipe")).toLocal8Bit();
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    const int reader = open(pipe.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    m_tool.process.setStandardOutputFile(m_tool.Path(QStringLiteral("pipe")));
    m_tool.Write(QStringLiteral("a.play"),
                 QString::fromUtf8(kRunMotor) + QLatin1String("press cancel\nwait box\nwait no box\nwait idle\n"));
    m_tool.Start(QStringLiteral("--speed 10 --play ~/a.play --log - --shots ~"));
    ASSERT_TRUE(m_tool.process.waitForStarted());
    pollfd state{reader, POLLIN, 0};
    ASSERT_EQ(poll(&state, 1, 10'000), 1);
    close(reader);
    EXPECT_EQ(m_tool.Finish(), 1);
    EXPECT_EQ(m_tool.errors.count(QLatin1Char('\n')), 1) << m_tool.errors.toStdString();
    EXPECT_TRUE(m_tool.errors.contains(QLatin1String("standard output: cannot be written any more: Broken pipe")));
}

TEST_F(Endings, AFullDiskIsToldOnceAndTheRunGoesOn) {
    EXPECT_EQ(m_tool.Play(QStringLiteral("start\nset 9902 250\npress apply\nwait idle\nexpect drive 9902 250\n"),
                          QStringLiteral("--log /dev/full")),
              1);
    EXPECT_EQ(m_tool.errors, QStringLiteral("krt550tool: log /dev/full: cannot be written any more: No space left on "
                                            "device; the run goes on without it\n"));
    EXPECT_TRUE(m_tool.output.contains(QLatin1String("RunWizard returned 0")));
}

TEST_F(Endings, ALogIsOneProgramsOnly) {
    StartMotor();
    ToolRun second;
    second.Write(QStringLiteral("a.play"), QStringLiteral("start\n"));
    const QString log = m_tool.Path(QStringLiteral("log"));
    EXPECT_EQ(second.Run(QLatin1String("--play ~/a.play --shots ~ --log ") + log), 2);
    EXPECT_TRUE(second.errors.contains(QLatin1String("another program is writing it"))) << second.errors.toStdString();
    Send(SIGTERM);
    EXPECT_EQ(m_tool.Finish(), 1);
    ExpectStopped();
    EXPECT_TRUE(m_tool.Lines(QStringLiteral("log")).first().startsWith(QLatin1Char('#'))) << "nothing was lost of it";
}

#ifdef KRT550_XVFB
TEST_F(Endings, TheDisplayThatDiesStopsTheMotor) {
    QProcess display;
    display.start(QStringLiteral(KRT550_XVFB), {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                                QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    ASSERT_TRUE(display.waitForReadyRead());
    const QString number = QString::fromLatin1(display.readAllStandardOutput()).trimmed();
    m_tool.SetVariable("DISPLAY", QLatin1Char(':') + number);
    m_tool.SetVariable("QT_QPA_PLATFORM", QStringLiteral("xcb"));
    StartMotor();
    display.kill();
    EXPECT_EQ(m_tool.Finish(), 1);
    EXPECT_TRUE(m_tool.errors.contains(QLatin1String("connection broke"))) << m_tool.errors.toStdString();
    ExpectStopped();
    const QStringList states = m_tool.Lines(QStringLiteral("log")).filter(QStringLiteral("GetStatusWord"));
    EXPECT_TRUE(states.last().section(QLatin1Char('\t'), 3, 3).toUInt() & kStatusStopped) << "waited for standstill";
    display.waitForFinished();
}
#endif

} // namespace
} // namespace krt550
