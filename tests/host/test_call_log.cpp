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
