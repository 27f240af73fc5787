// Who may command the drive, and what becomes of one who falls silent.
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "tests/server/served_sim.h"

#include <QFile>

namespace krt550 {
namespace {

using test::ServedSim;
using enum WireCommand;

constexpr int kDone = 0;
constexpr int kStray = 3;
constexpr int kRefused = 4;
constexpr int kBusy = 6;

TEST(Masters, OnlyTheOneThatTookLocalControlCommands) {
    ServedSim sim;
    EXPECT_EQ(sim.Command(sim.b, StartMotor), kRefused);
    EXPECT_EQ(sim.State(sim.b).reason, QStringLiteral("Take local control of the drive first."));
    EXPECT_EQ(sim.Command(sim.a, TakeLocalControl), kDone);
    for (const WireCommand command : {TakeLocalControl, ReleaseLocalControl, CloseContactor, StopMotor, ResetFault})
        EXPECT_EQ(sim.Command(sim.b, command), kBusy) << static_cast<int>(command);
    EXPECT_EQ(sim.Command(sim.b, Poll), kDone);
    EXPECT_EQ(sim.Ask(sim.b, "06 0bd5 0014"), "86 06") << "nor does another one change parameters";
    EXPECT_EQ(sim.State(sim.a).place, WireControlPlace::Local);
    EXPECT_EQ(sim.State(sim.a).status, wire_status::kLocalControl | wire_status::kStopped);
    EXPECT_EQ(sim.State(sim.b).place, WireControlPlace::Other);
    EXPECT_EQ(sim.State(sim.b).status, wire_status::kStopped);
    EXPECT_EQ(sim.State(sim.b).lastResult, WireException::None) << "of its poll";
    EXPECT_EQ(sim.State(sim.b).commandCount, 2) << "the start that was refused, and the local control";

    EXPECT_EQ(sim.SetReference(sim.a, 12'345'600), 3);
    EXPECT_EQ(sim.SetReference(sim.a, 50'025), kDone);
    EXPECT_EQ(sim.Command(sim.a, CloseContactor), kDone);
    EXPECT_EQ(sim.Command(sim.a, StartMotor), kDone);
    sim.Seconds(20, &sim.a);
    EXPECT_EQ(sim.State(sim.b).reference, 500.25);
    EXPECT_NEAR(sim.m_drive->GetDrive().GetSpeed(), 500, 100);
    EXPECT_EQ(sim.State(sim.a).status,
              wire_status::kLocalControl | wire_status::kContactorClosed | wire_status::kRunning);

    // Its connection is gone: the next one takes over and has the drive.
    sim.m_served.Forget(sim.a);
    EXPECT_EQ(sim.Command(sim.b, StopMotor), kBusy);
    EXPECT_EQ(sim.Command(sim.b, TakeLocalControl), kDone);
    sim.Seconds(6, &sim.b);
    EXPECT_TRUE(sim.State(sim.b).status & wire_status::kRunning);
    EXPECT_EQ(sim.Command(sim.a, StopMotor), kBusy);
    EXPECT_EQ(sim.Command(sim.b, StopMotor), kDone);
    EXPECT_EQ(sim.Command(sim.b, ReleaseLocalControl), kDone);
}

TEST(Masters, ADriveWhoseMasterFallsSilentStopsAndIsFree) {
    enum class Silence { Still, Closed, OthersPoll, ComesBack };
    for (const Silence silence : {Silence::Still, Silence::Closed, Silence::OthersPoll, Silence::ComesBack}) {
        ServedSim sim;
        CSimulatedDrive& drive = sim.m_drive->GetDrive();
        drive.GetRegisters().SetNumber(reg::kLocalSupervision, 1);
        ASSERT_EQ(sim.Command(sim.a, TakeLocalControl), kDone);
        ASSERT_EQ(sim.SetReference(sim.a, 50'000), kDone);
        ASSERT_EQ(sim.Command(sim.a, CloseContactor), kDone);
        ASSERT_EQ(sim.Command(sim.a, StartMotor), kDone);
        sim.Seconds(20, &sim.a);
        sim.Seconds(0.9, nullptr);
        EXPECT_EQ(sim.Ask(sim.a, "03 270f 0001"), "83 02") << "a frame that is refused is heard as well";
        if (silence == Silence::Closed)
            sim.m_served.Forget(sim.a);
        Master* const polls = silence == Silence::OthersPoll ? &sim.b : nullptr;
        sim.Seconds(0.95, polls);
        EXPECT_EQ(drive.GetCommanders().GetStopReason(), 0);
        sim.Seconds(0.1, polls);
        EXPECT_EQ(drive.GetCommanders().GetStopReason(), kFaultConnection);
        sim.Seconds(30, silence == Silence::ComesBack ? &sim.a : polls);
        const WireState state = sim.State(sim.a);
        EXPECT_EQ(state.activeFault, kFaultConnection);
        EXPECT_EQ(state.status, wire_status::kFault | wire_status::kStopped);
        EXPECT_EQ(state.place, WireControlPlace::Remote);
        EXPECT_EQ(sim.Command(sim.b, TakeLocalControl), kDone);
        EXPECT_EQ(sim.Command(sim.b, ResetFault), kDone);
    }
}

TEST(Masters, StrayCommandsStartNothing) {
    ServedSim sim;
    const struct {
        WireCommand command;
        quint8 number;
        int result;
        int count; ///< commands that have come to the drive
    } steps[] = {
        {TakeLocalControl, 254, kDone, 1},  {CloseContactor, 255, kDone, 2},    {StartMotor, 1, kDone, 3},
        {StopMotor, 2, kDone, 4},           {StartMotor, 1, kStray, 4},         // came twice, and late
        {StartMotor, 4, kStray, 4},                                             // one is missing before it
        {StopMotor, 9, kDone, 5},                                               // stops all the same
        {ReleaseLocalControl, 3, kDone, 6}, {ReleaseLocalControl, 3, kDone, 6}, // answered again, not done again
        {StartMotor, 4, kRefused, 7},       {StartMotor, 4, kRefused, 7},       {StartMotor, 0, kRefused, 8},
        {TakeLocalControl, 77, kDone, 9},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(sim.Command(sim.a, step.command, step.number), step.result) << int(step.number);
        EXPECT_EQ(sim.State(sim.a).commandCount, step.count) << int(step.number);
    }
    EXPECT_EQ(sim.State(sim.a).lastCommand, CommandWord(TakeLocalControl, 77));
    EXPECT_EQ(sim.m_drive->GetDrive().GetCounters().motorStarts, 3) << "one, and two that were refused";
}

TEST(Masters, ADriveThatCannotKeepUpAnswersAndFallsBehind) {
    ServedSim sim("sim", 0);
    const qint64 begin = sim.m_time.Now();
    sim.m_clock.Sleep(CServedClock::kPieceMs);
    sim.m_served.Advance();
    EXPECT_EQ(sim.m_time.Now() - begin, CServedClock::kPieceMs);
    EXPECT_FALSE(sim.m_time.HasLost());
    sim.m_clock.Sleep(3'600'000);
    EXPECT_EQ(sim.State(sim.a).status, wire_status::kStopped);
    EXPECT_EQ(sim.m_time.Now() - begin, 2 * CServedClock::kPieceMs) << "the rest is lost";
    EXPECT_TRUE(sim.m_time.HasLost());
    sim.m_clock.Sleep(30);
    sim.m_served.Advance();
    EXPECT_EQ(sim.m_time.Now() - begin, 2 * CServedClock::kPieceMs + 30) << "and not made up for";

    CServedClock patient(sim.m_clock, 3'600'000);
    int pieces = 0;
    sim.m_clock.Sleep(1030);
    patient.Pass([&pieces] { ++pieces; });
    EXPECT_EQ(pieces, 11) << "with time enough all of it passes";
    EXPECT_FALSE(patient.HasLost());
}

TEST(WireValues, TextsAreCutBetweenCharacters) {
    for (const auto& [text, shown] : {std::pair{"kg·m²", "kg·m"},
                                      {"", ""},
                                      {"abcdef", "abcdef"},
                                      {"abcdefg", "abcdef"},
                                      {"ab€d", "ab€d"},
                                      {"abcd€", "abcd"}}) {
        Words words(4, 0xFFFF);
        PutText(words, 0, QString::fromUtf8(text), 6);
        EXPECT_EQ(GetText(words, 0).toStdString(), shown);
    }
    WireState state;
    state.reason = QString(300, u'x');
    state.reference = -1234.567;
    state.lastResult = WireException::Busy;
    const WireState read = DecodeState(EncodeState(state));
    EXPECT_EQ(read.reason, QString(200, u'x'));
    EXPECT_EQ(read.reference, -1234.57);
    EXPECT_EQ(read.lastResult, WireException::Busy);
    EXPECT_FALSE(HundredthsOf(3e7) || HundredthsOf(std::nan("")));
}

TEST(RegisterMap, StandsInItsDocument) {
    QFile file(QStringLiteral(KRT550_SOURCE_DIR "/docs/modbus.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(file.readAll()).contains(MapText()))
        << "docs/modbus.md lacks the table that krt550sim --map prints";
}

} // namespace
} // namespace krt550
