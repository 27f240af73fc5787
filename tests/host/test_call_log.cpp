#include "host/call_log.h"
#include "host/logged_drive.h"
#include "host/logged_link.h"
#include "hostlib/tolvbo32/scaled_clock.h"
#include "tests/support/batching_link.h"
#include "tests/support/fake_drive.h"

namespace krt550 {
namespace {

class CallLog : public testing::Test {
protected:
    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    QStringList m_written;
    CCallLog m_log{[this](const QByteArray& line) { m_written.append(QString::fromUtf8(line)); }, true};
};

TEST_F(CallLog, WritesALineForEveryParameterAccess) {
    FakeDrive drive(WizardParameters());
    drive.words[9902] = 440;
    drive.unwritable = {801};
    CBatchingLink inner(drive);
    CLoggedLink link(inner, m_log);
    const quint16 next[] = {9902, 801};
    link.Announce(next); // without a line
    quint16 word = 0;
    EXPECT_TRUE(link.ReadWord(9902, word));
    EXPECT_EQ(word, 440);
    EXPECT_EQ(inner.TakeRequests(), QStringList("fetch 9902 801"));
    m_clock.Sleep(25);
    EXPECT_TRUE(link.WriteWord(9902, 500));
    EXPECT_FALSE(link.WriteWord(801, 1));
    EXPECT_EQ(link.LastErrorText(), QStringLiteral("simulated failure"));
    const QStringList lines{QStringLiteral("0\tReadWord\t9902\t440\tok"),
                            QStringLiteral("25\tWriteWord\t9902\t500\tok"),
                            QStringLiteral("25\tWriteWord\t801\t1\tfailed: simulated failure")};
    EXPECT_EQ(m_log.Lines(), lines);
    EXPECT_EQ(m_written, QStringList(QStringLiteral("# time\tcall\tregister\tvalue\toutcome")) + lines);
}

TEST_F(CallLog, PassesEveryDriveCallOnAndNotesItsAnswer) {
    constexpr std::pair<const char*, bool (CHostDrive::*)()> calls[] = {
        {"RefreshState", &CHostDrive::RefreshState},
        {"StartMotor", &CHostDrive::StartMotor},
        {"StopMotor", &CHostDrive::StopMotor},
        {"ResetFault", &CHostDrive::ResetFault},
        {"OpenContactor", &CHostDrive::OpenContactor},
        {"CloseContactor", &CHostDrive::CloseContactor},
        {"TakeLocalControl", &CHostDrive::TakeLocalControl},
        {"ReleaseLocalControl", &CHostDrive::ReleaseLocalControl}};
    FakeDrive inner(WizardParameters());
    CLoggedDrive drive(inner, m_log);
    QStringList expected;
    for (const bool answer : {true, false}) {
        inner.fails = [&](const QString&) { return !answer; };
        for (const auto& [name, call] : calls) {
            EXPECT_EQ((drive.*call)(), answer) << name;
            expected.append(QStringLiteral("0\t%1\t\t\t%2")
                                .arg(QLatin1String(name), QLatin1String(answer ? "ok" : "failed: refused")));
        }
        EXPECT_EQ(inner.TakeLog().size(), qsizetype(std::size(calls)));
    }
    inner.fails = {};
    inner.hasInfo = false;
    EXPECT_EQ(drive.GetStatusWord(), kStatusStopped);
    EXPECT_EQ(drive.GetDriveInfo(), nullptr);
    EXPECT_FALSE(drive.IsLocalControlActive());
    EXPECT_TRUE(drive.CheckCancelCondition() && drive.SetReference(QStringLiteral("250")));
    expected += {QStringLiteral("0\tGetStatusWord\t\t16\tok"), QStringLiteral("0\tGetDriveInfo\t\tnone\tok"),
                 QStringLiteral("0\tIsLocalControlActive\t\tno\tok"),
                 QStringLiteral("0\tCheckCancelCondition\t\tyes\tok"), QStringLiteral("0\tSetReference\t\t250\tok")};
    EXPECT_EQ(m_log.Lines(), expected);
}

TEST(ScaledClock, RunsFasterAndLosesNoTime) {
    CSteppedClock base;
    base.Sleep(1000);
    CScaledClock clock(base, 20);
    EXPECT_EQ(clock.Now(), 1000);
    clock.Sleep(50);
    EXPECT_EQ(clock.Now(), 1040) << "2 ms of the base clock; 10 ms are owed";
    clock.Sleep(10);
    EXPECT_EQ(clock.Now(), 1060);
}

} // namespace
} // namespace krt550
