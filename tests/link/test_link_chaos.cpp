// Every procedure of the fault matrix, on the real drive program at the other end of a wire that is cut at a frame of
// the run, or that loses, doubles, delays, swaps and mangles what it carries. Whatever becomes of the run: no rule of
// safety is broken, soon after it the motor stands, the contactor is open and local control is given up, by the wizard
// or by the drive's own supervision; whatever one click sets off tells of a cut once; and when the wire is whole again,
// so is everything else. One frame of each, and every third on a bad line; KRT550_LINK_STRIDE=10 takes every tenth
// frame of a run, KRT550_LINK_SEEDS=20 so many bad lines for each (bench/link_cuts.sh).
#include "host/call_log.h"
#include "host/logged_drive.h"
#include "host/logged_link.h"
#include "hostlib/tolvbo32/scaled_clock.h"
#include "tests/assistants/procedures.h"
#include "tests/assistants/safety_rules.h"
#include "tests/assistants/tuning_drive.h"
#include "tests/link/simulator.h"
#include "tests/shell/wizard_fixture.h"
#include "wizard/motor/make_safe.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace krt550 {
namespace {

constexpr int kSpeed = 10;
constexpr int kMendMs = 700;
constexpr int kPatienceMs = 3000;
constexpr int kLookMs = 300;                ///< after which the person at a run does the next thing
constexpr quint16 kSupervisionSeconds = 20; ///< of the drive's time: 2 s
constexpr int kTries = 3;                   ///< of a run that the machine spoilt
constexpr int kSafeMs = 6000;               ///< on the wall: supervision, ramp, standstill
/// What the drive needs for a procedure, beside the motor S2: options, and words.
struct Setup {
    QStringList options;
    std::map<quint16, quint16> words;
};
const std::map<QString, Setup> kSetups = {
    {"Step7", {{}, {{4401, 1}}}},
    {"FieldReversal", {{"Uf=40", "If=40", "Lf=0.5"}, {{4401, 2}, {4316, 1}, {4508, 3000}}}},
};
const std::set<std::string> kOnSerialLine = {"Macro", "TurnByHand", "Step3", "Step5Tacho", "FieldReversal"};

/// Judges the calls of the wizard as they are logged: after they have done what they do.
class CCallWatch : public SafetyRules {
public:
    explicit CCallWatch(CModbusDrive& drive) : m_drive(drive) {}

    void Note(const QStringList& columns) {
        static const QRegularExpression noCall("^(Get|Is|Check)");
        static const QRegularExpression capital("(?!^)([A-Z])");
        QString call = columns.value(1);
        if (columns.size() < 5 || call.contains(noCall))
            return;
        NoteOutcome(columns[4]);
        call = call == "WriteWord" ? "write " + columns[2] + '=' + columns[3] : call.replace(capital, " \\1").toLower();
        JudgeCall(call, m_inServiceMode);
        if (columns[2] == "9906")
            m_inServiceMode = columns[3] != "0";
        m_toldToStop = call == "stop motor" || (m_toldToStop && call != "start motor");
        // A drive that has given local control up, as it does when it hears nothing, stops by itself.
        const bool stopped = (m_drive.GetStatusWord() & kStatusStopped) != 0 || !m_drive.IsLocalControlActive();
        m_turning = (m_turning && !stopped) || call == "start motor";
    }

private:
    CModbusDrive& m_drive;
    bool m_inServiceMode = false;
};

class CWireRun {
public:
    CWireRun(const Procedure& procedure, bool serial)
        : m_procedure(procedure), m_serial(serial),
          m_simulator(serial, kSpeed, 0,
                      QStringList{"--motor", "S2", procedure.feedback == 2 ? "feedback=tacho" : "feedback=encoder"} +
                          SetupOf(procedure).options) {
        m_host->SetTreeLink(&m_link);
        auto words = SetupOf(procedure).words;
        words[3029] = kSupervisionSeconds * 10;
        for (const auto& [reg, word] : words)
            EXPECT_TRUE(m_host->GetLink().WriteWord(reg, word)) << m_link.LastErrorText().toStdString();
        EnsureStepStates();
    }

    CWireRelay& GetRelay() { return m_simulator.GetRelay(); }

    void Run() {
        m_watch.emplace(*m_host);
        BoxClerk clerk(*m_watch);
        QTimer person;
        m_looks = 0;
        QObject::connect(&person, &QTimer::timeout, &person, [this] { MendAfterAWhile(), WorkAtRun(); });
        person.start(20);
        SetStepState(m_procedure.step, StepState::NotChosen);
        m_host->ResetFault(); // that the drive's supervision may have left
        RunWizardWith(m_drive, [this] { m_procedure.Do(); });
        texts = clerk.texts;
        EXPECT_EQ(Robot::Front(), nullptr);
        EXPECT_EQ(m_watch->violations.join(u'|').toStdString(), "") << texts.join(u'|').toStdString();
    }
    /// On a good line it succeeds. For a moment the machine itself may be silent, as one that gives its processors away
    /// is: that the relay saw, and it is run once more. Returns the frames of the run.
    int RunOnGoodLine() {
        int frames = 0;
        for (int tries = 0; tries < kTries; ++tries) {
            m_simulator.JumpOn(CLinkThread::kDownMs);
            const int before = GetRelay().GetFrames();
            const int unanswered = GetRelay().GetUnanswered();
            Run();
            frames = GetRelay().GetFrames() - before;
            ExpectSafe();
            if (HasSucceeded())
                return frames;
            if (GetRelay().GetUnanswered() == unanswered)
                break;
            std::printf("    once more: %d requests without an answer on a good line, %s\n",
                        GetRelay().GetUnanswered() - unanswered, texts.join(u'|').toUtf8().constData());
        }
        ADD_FAILURE() << "on a good line: " << texts.join(u'|').toStdString();
        return frames;
    }
    bool HasSucceeded() const { return m_procedure.step == 0 || GetStepState(m_procedure.step) == StepState::Done; }

    /// Somebody else looks at the drive; on a serial line there is nobody else.
    void ExpectSafe() {
        if (m_serial)
            GetRelay().Mend();
        const auto other = m_serial ? nullptr : m_simulator.ConnectPast();
        CModbusDrive& witness = other ? *other : *m_host;
        constexpr quint32 kAlive = wire_status::kContactorClosed | wire_status::kRunning | wire_status::kLocalControl;
        const auto isSafe = [&] {
            return witness.RefreshState() && !(witness.GetStatusWord() & kAlive) &&
                   (witness.GetStatusWord() & wire_status::kStopped) && (m_serial || witness.TakeLocalControl());
        };
        EXPECT_TRUE(QTest::qWaitFor(isSafe, kSafeMs)) << "status " << witness.GetStatusWord();
        witness.ReleaseLocalControl();
    }

    bool mends = true;
    QStringList texts;

private:
    static Setup SetupOf(const Procedure& procedure) {
        const auto setup = kSetups.find(procedure.name);
        return setup == kSetups.end() ? Setup() : setup->second;
    }

    /// What stays cut somebody loses patience with.
    void MendAfterAWhile() {
        if (!GetRelay().IsCut())
            m_cutFor.invalidate();
        else if (!m_cutFor.isValid())
            m_cutFor.start();
        else if (mends && m_cutFor.elapsed() > kMendMs)
            GetRelay().Mend();
        else if (!mends && m_cutFor.elapsed() > kPatienceMs && Robot::Front()) {
            m_watch->AskForTheEnd();
            Robot::CloseWindow();
        }
    }

    void WorkAtRun() {
        if (m_looks == 0)
            m_runs.start();
        if (!m_watch->IsTurning() || IsMotorStopping() || m_runs.elapsed() < m_looks * kLookMs)
            return;
        ++m_looks;
        if (m_procedure.atLook)
            m_procedure.atLook(m_looks);
        const auto* start = qobject_cast<QPushButton*>(Robot::Find(kStartRun));
        if (m_procedure.endOfTuning != 0 && start && start->text() == "Finish")
            PressIfThere(m_procedure.endOfTuning);
    }

    const Procedure& m_procedure;
    const bool m_serial;
    CScaledClock m_clock{CClock::Current(), kSpeed};
    ClockScope m_scope{m_clock};
    CSimulator m_simulator;
    std::unique_ptr<CModbusDrive> m_host =
        m_simulator.Connect(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550Wizard.so"));
    std::optional<CCallWatch> m_watch;
    CCallLog m_log{[this](const QByteArray& line) {
                       if (m_watch)
                           m_watch->Note(QString::fromUtf8(line).split('\t'));
                   },
                   false};
    CLoggedLink m_link{m_host->GetLink(), m_log};
    CLoggedDrive m_drive{*m_host, m_log};
    QElapsedTimer m_cutFor;
    QElapsedTimer m_runs;
    int m_looks = 0;
};

using Case = std::tuple<int, bool>; ///< procedure, serial line

std::vector<Case> Cases(int every) {
    std::vector<Case> cases;
    for (int p = 0; p < int(AllProcedures().size()); p += every) {
        cases.emplace_back(p, false);
        if (kOnSerialLine.contains(AllProcedures()[std::size_t(p)].name))
            cases.emplace_back(p, true);
    }
    return cases;
}

class LinkChaos : public testing::TestWithParam<Case> {
protected:
    const int m_index = std::get<0>(GetParam());
    const Procedure& m_procedure = AllProcedures()[std::size_t(m_index)];
    const bool m_serial = std::get<1>(GetParam());
};
class CutWire : public LinkChaos {};
class BadLine : public LinkChaos {};

TEST_P(CutWire, LeavesNothingTurning) {
    const int frames = CWireRun(m_procedure, m_serial).RunOnGoodLine();
    const int wanted = qEnvironmentVariableIntValue("KRT550_LINK_STRIDE");
    int cases = wanted > 0 ? 0 : m_index;
    const int first = wanted > 0 ? 1 : frames / 4 + frames * (m_index % 5) / 8;
    for (int frame = first; frame < frames && !HasFailure(); frame += wanted > 0 ? wanted : frames, ++cases) {
        SCOPED_TRACE("cut at frame " + std::to_string(frame) + " of " + std::to_string(frames));
        CWireRun run(m_procedure, m_serial);
        run.mends = cases % 3 != 2;
        run.GetRelay().CutAt(frame, cases % 2 == 0 ? Cut::Silent : Cut::Closed);
        run.Run();
        run.ExpectSafe();
        run.GetRelay().Mend();
        run.RunOnGoodLine();
    }
    std::printf("    %d cuts of %d frames\n", wanted > 0 ? cases : 1, frames);
}

TEST_P(BadLine, LeavesNothingTurning) {
    RelayFaults faults{.dropped = 0.01, .truncated = 0.002, .late = 0.02, .lateMs = 400, .seed = unsigned(m_index) + 1};
    (m_serial ? faults.damaged : faults.doubled) = 0.02; // a serial line doubles and swaps nothing
    faults.swapped = m_serial ? 0 : 0.01;
    const int seeds = std::max(qEnvironmentVariableIntValue("KRT550_LINK_SEEDS"), 1);
    int succeeded = 0;
    for (int i = 0; i < seeds && !HasFailure(); ++i, faults.seed += 100) {
        SCOPED_TRACE("seed " + std::to_string(faults.seed));
        CWireRun run(m_procedure, m_serial);
        run.GetRelay().SetFaults(faults);
        run.Run();
        succeeded += run.HasSucceeded() ? 1 : 0;
        run.GetRelay().SetFaults({});
        run.ExpectSafe();
        run.RunOnGoodLine();
    }
    std::printf("    %d of %d runs succeeded\n", succeeded, seeds);
}

std::string NameOf(const testing::TestParamInfo<Case>& chaos) {
    return std::string(AllProcedures()[std::size_t(std::get<0>(chaos.param))].name) +
           (std::get<1>(chaos.param) ? "OnSerialLine" : "");
}

INSTANTIATE_TEST_SUITE_P(Chaos, CutWire, testing::ValuesIn(Cases(1)), NameOf);
INSTANTIATE_TEST_SUITE_P(Chaos, BadLine,
                         testing::ValuesIn(Cases(qEnvironmentVariableIsSet("KRT550_LINK_SEEDS") ? 1 : 3)), NameOf);

} // namespace
} // namespace krt550
