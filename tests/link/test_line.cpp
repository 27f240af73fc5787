// The host's link against the real drive program, over a relay that loses what it is told to: on TCP and on a serial
// line, in real time.
#include "tests/link/simulator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>

namespace krt550 {
namespace {

using namespace std::chrono_literals;

constexpr quint8 kRead = 3;
constexpr quint8 kWrite = 6;
constexpr quint16 kVoltage = 9902;
constexpr quint16 kSupervision = 3029;

/// A frame that a test looks for: function code and, of a request, address.
struct Frame {
    bool isRequest;
    quint8 function;
    quint16 address = 0;
};

/// Loses frames of one kind, and counts the requests of it.
struct Loss {
    Frame frame{};
    int lost = 0; ///< so many
    std::atomic<int> requests = 0;

    void Watch(CWireRelay& relay) {
        relay.Watch([this, address = quint16{0}](bool isRequest, std::span<const quint8> pdu) mutable {
            if (isRequest && pdu.size() >= 3)
                address = static_cast<quint16>(pdu[1] << 8 | pdu[2]);
            if (pdu.empty() || pdu[0] != frame.function || address != frame.address)
                return true;
            requests += isRequest ? 1 : 0;
            return isRequest != frame.isRequest || lost-- <= 0;
        });
    }
};

class Line : public testing::TestWithParam<bool> {
protected:
    CSimulator m_simulator{GetParam()};
    std::unique_ptr<CModbusDrive> m_drive = m_simulator.Connect();
    CParameterLink& m_link = m_drive->GetLink();
};

TEST_P(Line, FindsOutWhatBecameOfWhatWasLost) {
    const auto read = [this] {
        quint16 word = 0;
        return m_link.ReadWord(kVoltage, word) && word == 240;
    };
    const auto write = [this] { return m_link.WriteWord(9903, 150); };
    const auto take = [this] { return m_drive->TakeLocalControl(); };
    const auto stop = [this] { return m_drive->StopMotor(); };
    const struct {
        const char* name;
        Frame lost;
        int frames;
        std::function<bool()> act;
        bool succeeds;
        int requests; ///< of this kind that the host sends
        const char* says = "";
    } cases[] = {
        {"a read is repeated", {true, kRead, kVoltage}, 1, read, true, 2},
        {"and so is one whose answer was lost", {false, kRead, kVoltage}, 2, read, true, 3},
        {"a lost write", {true, kWrite, 9903}, 1, write, false, 1, "and the drive has not taken the value"},
        {"a write whose answer was lost", {false, kWrite, 9903}, 1, write, true, 1},
        {"a lost command", {true, kWrite, wire::kCommand}, 1, take, false, 1, "and the drive has not got the command"},
        {"a command whose answer was lost", {false, kWrite, wire::kCommand}, 1, take, true, 1},
        {"a stop is repeated", {true, kWrite, wire::kCommand}, 2, stop, true, 3},
        {"a read that nobody answers", {true, kRead, kVoltage}, 3, read, false, 3, "no answer within 300 ms"},
    };
    for (const auto& c : cases) {
        Loss loss{c.lost, c.frames};
        loss.Watch(m_simulator.GetRelay());
        EXPECT_EQ(c.act(), c.succeeds) << c.name << ": " << m_link.LastErrorText().toStdString();
        EXPECT_EQ(loss.requests, c.requests) << c.name;
        EXPECT_TRUE((m_link.LastErrorText() + u' ').contains(QLatin1String(c.says) + u' '))
            << m_link.LastErrorText().toStdString();
        m_simulator.GetRelay().Watch({});
    }
    EXPECT_TRUE(m_link.LastErrorText().startsWith(QLatin1String("drive 1 at ")));
    m_simulator.GetRelay().CutAt(1, Cut::Silent);
    EXPECT_FALSE(read());
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(read() || read() || read());
    EXPECT_LT(time.elapsed(), 100) << "a line that is down is not waited for again";
    m_simulator.GetRelay().Mend();
    m_simulator.JumpOn(CLinkThread::kDownMs);
    EXPECT_TRUE(read());
    EXPECT_TRUE(m_drive->IsLocalControlActive()) << "and was taken once";
}

TEST_P(Line, HandsOutWhatWasAskedForWhateverTheLineDoes) {
    // A serial line doubles and swaps nothing.
    RelayFaults faults{.dropped = 0.05, .truncated = 0.02, .late = 0.1, .lateMs = 250};
    (GetParam() ? faults.damaged : faults.doubled) = 0.1;
    faults.swapped = GetParam() ? 0 : 0.03;
    int good = 0;
    const auto described = ShippedParameters();
    for (; faults.seed <= 40; ++faults.seed) {
        const quint16 reg = described[faults.seed % 3 + 2].reg;
        quint16 word = 0;
        quint16 again = 0;
        m_simulator.GetRelay().SetFaults(faults);
        m_link.Announce(std::array{reg});
        const bool read = m_link.ReadWord(reg, word);
        m_simulator.GetRelay().SetFaults({});
        m_simulator.JumpOn(read ? 0 : CLinkThread::kDownMs);
        ASSERT_TRUE(m_link.ReadWord(reg, again)) << m_link.LastErrorText().toStdString();
        EXPECT_TRUE(!read || word == again) << reg;
        good += read ? 1 : 0;
    }
    EXPECT_GT(good, 30) << "of 40";
}

TEST_P(Line, SaysWhatTheDriveSays) {
    quint16 word = 0;
    EXPECT_FALSE(m_link.ReadWord(9999, word));
    EXPECT_TRUE(m_link.LastErrorText().contains(QLatin1String("99.99"))) << m_link.LastErrorText().toStdString();
    EXPECT_FALSE(m_link.WriteWord(kVoltage, 60000));
    EXPECT_TRUE(m_link.LastErrorText().contains(QLatin1String("99.02"))) << m_link.LastErrorText().toStdString();
    EXPECT_FALSE(m_drive->StartMotor());
    EXPECT_TRUE(m_link.LastErrorText().contains(QLatin1String("local control")))
        << m_link.LastErrorText().toStdString();
    EXPECT_TRUE(m_drive->CheckDiagnosisCondition()) << "it has answered";
    quint32 header = 0;
    quint32 bytes = 39;
    const FaultBufferRequest request;
    QByteArray record;
    EXPECT_EQ(m_drive->ReadFaultBuffer(header, &request, &bytes, record), 0);
    EXPECT_EQ(record.size(), 74);
}

TEST_P(Line, FetchesWhatWasAnnouncedInFewRequestsAndTheStopGoesBeforeThem) {
    std::vector<quint16> registers;
    for (const ParameterDescription& parameter : ShippedParameters())
        registers.push_back(parameter.reg);
    CWireRelay& relay = m_simulator.GetRelay();
    int before = relay.GetRequests();
    m_link.Announce(registers);
    for (const quint16 reg : registers)
        if (quint16 word = 0; !m_link.ReadWord(reg, word))
            ADD_FAILURE() << m_link.LastErrorText().toStdString();
    const int requests = relay.GetRequests() - before;
    EXPECT_LT(requests * 4, int(registers.size())) << "of " << registers.size();
    // A write ends it: what is read afterwards is read anew.
    m_link.Announce(registers);
    quint16 word = 0;
    EXPECT_TRUE(m_link.ReadWord(registers.front(), word));
    EXPECT_TRUE(m_link.WriteWord(9904, 777) && m_link.ReadWord(9904, word));
    EXPECT_EQ(word, 777);
    // At most the request that is on its way goes before the stop.
    relay.SetRoundTrip(20);
    Loss stops{{true, kWrite, wire::kCommand}};
    stops.Watch(relay);
    m_link.Announce(registers);
    EXPECT_TRUE(m_link.ReadWord(registers.front(), word));
    before = relay.GetRequests();
    EXPECT_FALSE(m_drive->StopMotor()) << "local control is not held";
    EXPECT_EQ(stops.requests, 1);
    EXPECT_LE(relay.GetRequests() - before, 3) << "the one on its way, the stop, and why it was refused";
}

TEST_P(Line, KeepsTheDriveHearingWhileTheWindowIsBusyAndNotWhenItHangs) {
    // 0.8 s of silence and the drive gives up.
    ASSERT_TRUE(m_drive->TakeLocalControl() && m_link.WriteWord(kSupervision, 8) && m_drive->CloseContactor());
    CWireRelay& relay = m_simulator.GetRelay();
    EXPECT_TRUE(relay.AwaitRequests(relay.GetRequests() + 6, 5s)) << "a busy window";
    EXPECT_TRUE(m_drive->RefreshState() && m_drive->IsLocalControlActive());
    m_simulator.JumpOn(CLinkThread::kHungMs);
    EXPECT_FALSE(relay.AwaitRequests(relay.GetRequests() + 2, 1200ms)) << "the one on its way at most";
    EXPECT_TRUE(m_drive->RefreshState());
    EXPECT_FALSE(m_drive->IsLocalControlActive()) << "a window that hung";
    EXPECT_FALSE(m_drive->GetStatusWord() & wire_status::kContactorClosed);
}

TEST_P(Line, TakesUpWhereItWasWhenTheWireIsMended) {
    CWireRelay& relay = m_simulator.GetRelay();
    ASSERT_TRUE(m_drive->TakeLocalControl() && m_drive->CloseContactor());
    for (const Cut cut : {Cut::Closed, Cut::Silent}) {
        relay.CutAt(1, cut);
        EXPECT_FALSE(m_drive->RefreshState());
        EXPECT_FALSE(m_drive->CheckDiagnosisCondition());
        relay.Mend();
        // As the way out does, at once and until it is taken.
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_drive->StopMotor(); })) << m_link.LastErrorText().toStdString();
        EXPECT_TRUE(m_drive->RefreshState() && m_drive->IsLocalControlActive());
    }
    EXPECT_TRUE(m_drive->OpenContactor() && m_drive->ReleaseLocalControl() && !m_drive->IsLocalControlActive());
}

INSTANTIATE_TEST_SUITE_P(Wires, Line, testing::Bool(),
                         [](const auto& wire) { return wire.param ? std::string("Rtu") : std::string("Tcp"); });

} // namespace
} // namespace krt550
