// The procedures that turn a motor, on the real drive program at the other end of a wire that is cut at a frame of the
// run, or that loses, doubles, delays, swaps and mangles what it carries. Whatever becomes of the run: soon after it
// the motor stands, the contactor is open and local control is given up, by the wizard or by the drive's own
// supervision; a cut is told once; and when the wire is whole again, so is everything else. A few frames only;
// KRT550_LINK_STRIDE=10 takes every tenth one of a run (bench/link_cuts.sh).
#include "hostlib/tolvbo32/scaled_clock.h"
#include "tests/assistants/procedures.h"
#include "tests/link/simulator.h"
#include "tests/shell/wizard_fixture.h"
#include "tests/support/yes_sayer.h"

#include <QElapsedTimer>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <cstdio>

namespace krt550 {
namespace {

constexpr int kSpeed = 10;
constexpr int kMendMs = 700;
constexpr int kPatienceMs = 3000;
constexpr int kFewFrames = 300;
constexpr quint16 kSupervisionSeconds = 20; ///< of the drive's time: 2 s
constexpr int kSafeMs = 6000;               ///< on the wall: supervision, ramp, standstill
constexpr const char* kProcedures[] = {"Step3", "Step4", "Step5Encoder", "Step6", "TurnByHand"};

const Procedure& FindProcedure(const char* name) {
    for (const Procedure& procedure : AllProcedures())
        if (std::strcmp(procedure.name, name) == 0)
            return procedure;
    throw std::logic_error(name);
}

class CWireRun {
public:
    explicit CWireRun(const char* procedure) : m_procedure(FindProcedure(procedure)) {
        EXPECT_EQ(m_host->GetLink().WriteWord(3029, kSupervisionSeconds * 10), true);
        EnsureStepStates();
    }

    CWireRelay& GetRelay() { return m_simulator.GetRelay(); }

    void Run() {
        CYesSayer clerk;
        QTimer mending;
        QObject::connect(&mending, &QTimer::timeout, &mending, [this] { MendAfterAWhile(); });
        mending.start(20);
        SetStepState(m_procedure.step, StepState::NotChosen);
        m_host->ResetFault(); // that the drive's supervision may have left
        RunWizardWith(*m_host, [this] { m_procedure.Do(); });
        texts = clerk.texts;
        EXPECT_EQ(Robot::Front(), nullptr);
    }
    bool HasSucceeded() const { return GetStepState(m_procedure.step) == StepState::Done; }

    /// Somebody else looks at the drive.
    void ExpectSafe() {
        const auto witness = m_simulator.ConnectPast();
        QElapsedTimer time;
        time.start();
        constexpr quint32 kAlive = wire_status::kContactorClosed | wire_status::kRunning;
        bool safe = false;
        while (!safe && time.elapsed() < kSafeMs) {
            safe = witness->RefreshState() && !(witness->GetStatusWord() & kAlive) &&
                   (witness->GetStatusWord() & wire_status::kStopped) && witness->TakeLocalControl();
            QThread::msleep(20);
        }
        EXPECT_TRUE(safe) << "status " << witness->GetStatusWord();
        if (safe)
            witness->ReleaseLocalControl();
    }

    bool mends = true;
    QStringList texts;

private:
    /// What stays cut somebody loses patience with.
    void MendAfterAWhile() {
        if (!GetRelay().IsCut())
            m_cutFor.invalidate();
        else if (!m_cutFor.isValid())
            m_cutFor.start();
        else if (mends && m_cutFor.elapsed() > kMendMs)
            GetRelay().Mend();
        else if (!mends && m_cutFor.elapsed() > kPatienceMs && Robot::Front())
            Robot::CloseWindow();
    }

    const Procedure& m_procedure;
    CScaledClock m_clock{CClock::Current(), kSpeed};
    ClockScope m_scope{m_clock};
    CSimulator m_simulator{false, kSpeed};
    std::unique_ptr<CModbusDrive> m_host =
        m_simulator.Connect(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550Wizard.so"));
    QElapsedTimer m_cutFor;
};

class LinkChaos : public testing::TestWithParam<const char*> {};

int FramesOf(const char* procedure) {
    CWireRun run(procedure);
    const int before = run.GetRelay().GetFrames();
    run.Run();
    EXPECT_TRUE(run.HasSucceeded()) << run.texts.join(u'|').toStdString();
    run.ExpectSafe();
    return run.GetRelay().GetFrames() - before;
}

TEST_P(LinkChaos, ACutWireLeavesNothingTurning) {
    const int frames = FramesOf(GetParam());
    const int wanted = qEnvironmentVariableIntValue("KRT550_LINK_STRIDE");
    const int stride = wanted > 0 ? wanted : std::max(frames / 3, kFewFrames);
    int cases = 0;
    for (int frame = wanted > 0 ? 1 : frames / 4; frame < frames && !HasFailure(); frame += stride, ++cases) {
        SCOPED_TRACE("cut at frame " + std::to_string(frame) + " of " + std::to_string(frames));
        CWireRun run(GetParam());
        run.mends = cases % 3 != 2;
        run.GetRelay().CutAt(frame, cases % 2 == 0 ? Cut::Silent : Cut::Closed);
        run.Run();
        run.ExpectSafe();
        const auto told = run.texts.filter(QRegularExpression(QStringLiteral("no answer within|no connection")));
        // Before a run everything that a person tries tells of it.
        if (frame >= frames / 4) {
            EXPECT_LE(told.size(), 1) << run.texts.join(u'|').toStdString();
        }
        run.GetRelay().Mend();
        QTest::qWait(kMendMs);
        run.Run();
        EXPECT_TRUE(run.HasSucceeded()) << "after the wire was mended: " << run.texts.join(u'|').toStdString();
        run.ExpectSafe();
    }
    std::printf("    %d cuts of %d frames\n", cases, frames);
}

TEST_P(LinkChaos, ABadLineLeavesNothingTurning) {
    const int wanted = qEnvironmentVariableIntValue("KRT550_LINK_SEEDS");
    int succeeded = 0;
    const int seeds = std::max(wanted, 1);
    for (int seed = 1; seed <= seeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        CWireRun run(GetParam());
        run.GetRelay().SetFaults({.dropped = 0.01,
                                  .doubled = 0.02,
                                  .truncated = 0.002,
                                  .swapped = 0.01,
                                  .late = 0.02,
                                  .lateMs = 400,
                                  .seed = unsigned(seed)});
        run.Run();
        succeeded += run.HasSucceeded() ? 1 : 0;
        run.ExpectSafe();
        run.GetRelay().SetFaults({});
        QTest::qWait(kMendMs);
        run.Run();
        EXPECT_TRUE(run.HasSucceeded()) << "on a good line again: " << run.texts.join(u'|').toStdString();
    }
    std::printf("    %d of %d runs succeeded\n", succeeded, seeds);
}

INSTANTIATE_TEST_SUITE_P(All, LinkChaos, testing::ValuesIn(kProcedures),
                         [](const auto& procedure) { return std::string(procedure.param); });

} // namespace
} // namespace krt550
