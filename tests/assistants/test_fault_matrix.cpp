// Every procedure with something in its way at every call to the host: the n-th call fails, or somebody wants out at
// it. n runs from 1 until a run does not come to it. A watch judges every call and every box, what a procedure leaves
// behind is judged when it ends, and again when the wizard has closed. One case alone:
//   KRT550_FAULT_CASE=n test_fault_matrix --gtest_filter=<the test that failed>
// KRT550_FAULT_STRIDE=k takes every k-th call only.
#include "tests/assistants/procedures.h"
#include "tests/assistants/safety_watch.h"
#include "tests/shell/wizard_fixture.h"
#include "tests/support/application_end.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/motor/make_safe.h"
#include "wizard/resources/control_ids.h"

#include <QTest>

namespace krt550 {
namespace {

/// What happens at the n-th call.
struct Disturbance {
    const char* name;
    int fails = 0;           ///< so many calls, from the n-th on; negative: all
    void (*act)() = nullptr; ///< what a person does
    bool isEnd = false;      ///< and wants to be out
    bool atBox = false;      ///< not at the call, but at the message box that the failure brings
    int boxPatienceMs = 0;   ///< how long nobody answers a box
    bool tabsOnly = false;
    bool reachesBehindBoxes = false; ///< as a person cannot
};

void Click(int id) {
    if (auto* button = qobject_cast<QPushButton*>(Robot::Find(id)))
        button->click();
}

void PressCancel() {
    Click(Robot::Find(kCancel) ? kCancel : kIdCancelDialog);
}

void PressEscape() {
    if (QWidget* focus = QApplication::focusWidget())
        QTest::keyClick(focus, Qt::Key_Escape);
    else if (Robot::Front())
        QTest::keyClick(Robot::Front(), Qt::Key_Escape);
}

const Disturbance kDisturbances[] = {
    {"FailsOnce", 1},
    {"FailsFromThenOn", -1},
    {"Gap", 4},
    {"FailsOnceAndNobodyAnswers", 1, nullptr, false, false, 10000},
    {"Cancel", 0, PressCancel, true},
    {"CancelAndRefused", 2, PressCancel, true},
    {"Close", 0, Robot::CloseWindow, true},
    {"Escape", 0, PressEscape, true},
    {"ApplicationEnds", 0, EndApplication, true, false, 0, false, true},
    {"AllWindowsClose", 0, QApplication::closeAllWindows, true, false, 0, false, true},
    {"ApplicationEndsAtABox", 1, EndApplication, true, true, 0, false, true},
    {"AllWindowsCloseAtABox", 1, QApplication::closeAllWindows, true, true, 0, false, true},
    {"Back", 0, [] { Click(kBack); }, false, false, 0, true},
    {"Next", 0, [] { Click(kNext); }, false, false, 0, true},
    {"OtherTab", 0, [] { Robot::ShowTab(1); }, false, false, 0, true},
};

#ifdef KRT550_FAULT_STRIDE
constexpr int kStride = KRT550_FAULT_STRIDE; // under the sanitizers everything takes many times as long
#else
constexpr int kStride = 1;
#endif

using Case = std::tuple<int, int>; ///< procedure, disturbance

std::vector<Case> AllCases() {
    std::vector<Case> cases;
    for (int p = 0; p < int(AllProcedures().size()); ++p)
        for (int d = 0; d < int(std::size(kDisturbances)); ++d)
            if (AllProcedures()[std::size_t(p)].hasTabs || !kDisturbances[d].tabsOnly)
                cases.emplace_back(p, d);
    return cases;
}

class FaultMatrix : public testing::TestWithParam<Case> {
protected:
    FaultMatrix() {
        // With update periods, so that passes become due in the middle of everything.
        static const WizardFiles files(
            QByteArray(kConnectionTexts) +
                "SLIDERVAL\t9\t2306\t50\nSLIDERVAL\t10\t2311\t60\nUPDATE\t1\t150\nUPDATE\t2\t150\n"
                "UPDATE\t3\t150\nUPDATE\t4\t150\nUPDATE\t5\t150\nUPDATE\t6\t150\nUPDATE\t7\t150\n"
                "UPDATE\t8\t150\nUPDATE\t9\t150\nUPDATE\t10\t150\nUPDATE\t11\t150\nUPDATE\t12\t150\nUPDATE\t14\t150\n"
                "UPDATE\t16\t150\nUPDATE\t101\t150\nUPDATE\t102\t150\nENABLESTART\t12\t9912\t0,1\n",
            "NAME\tPage\nCAP\t1\t2201\t5\t\t\tHelp\nCAP\t2\t2202\nCAP\t21\t2104\t1\n");
        m_wizardPath = files.WizardPath();
        EnsureStepStates();
    }

    const Procedure& GetProcedure() const { return AllProcedures()[std::size_t(std::get<0>(GetParam()))]; }
    const Disturbance& GetDisturbance() const { return kDisturbances[std::get<1>(GetParam())]; }

    /// Runs the procedure with the disturbance at call `n`; true when the run came to that call.
    bool RunCase(int n);
    void PrepareDrive(WatchedDrive& drive) const;
    void Disturb(WatchedDrive& drive, int boxesSoFar);
    void SetTrap(WatchedDrive& drive, BoxClerk& clerk, int n);
    void CheckRemains(const WatchedDrive& drive, const char* when);
    void CheckReport(const BoxClerk& clerk);
    void CheckAgain();

    QString m_wizardPath;
    QString m_disturbedCall;
    int m_calls = 0;
    bool m_linkDead = false;
    int m_endedBy = 0; ///< number of boxes that had come when somebody asked for the end of a run
};

void FaultMatrix::PrepareDrive(WatchedDrive& drive) const {
    drive.wizardPath = m_wizardPath;
    drive.found = GetProcedure().feedback;
    drive.onTuning = [id = GetProcedure().endOfTuning](int look) {
        if (look == 3)
            QTimer::singleShot(0, qApp, [id] { PressIfThere(id); });
    };
    drive.looksUntilDone = GetProcedure().looks;
    drive.onLook = GetProcedure().atLook;
    if (GetProcedure().fails)
        drive.outcome = 7;
    drive.HoldConnections(GetProcedure().connects);
}

void FaultMatrix::Disturb(WatchedDrive& drive, int boxesSoFar) {
    if (qobject_cast<QMessageBox*>(Robot::Front()) && !GetDisturbance().reachesBehindBoxes)
        return;
    // Escape means nothing inside a tab while nothing moves.
    const bool ends = GetDisturbance().isEnd && (GetDisturbance().act != PressEscape || IsMotorUnderControl());
    if (ends) {
        drive.AskForTheEnd();
        m_endedBy = boxesSoFar;
    }
    GetDisturbance().act();
}

void FaultMatrix::SetTrap(WatchedDrive& drive, BoxClerk& clerk, int n) {
    const Disturbance& disturbance = GetDisturbance();
    drive.fails = [this, &drive, &clerk, n](const QString& call) {
        const Disturbance& what = GetDisturbance();
        const int at = ++m_calls - n;
        if (at == 0) {
            m_disturbedCall = call;
            clerk.patienceMs = what.boxPatienceMs;
            if (what.act && !what.atBox)
                QTimer::singleShot(0, &clerk, [this, &drive, &clerk] { Disturb(drive, int(clerk.texts.size())); });
            // Somebody loses patience with a wizard that cannot reach its drive.
            CClock::Current().SetAlarm(400000, [] {
                for (int windows = 0; Robot::Front() && windows < 10; ++windows)
                    Robot::CloseWindow();
            });
        }
        m_linkDead = what.fails < 0 && at >= 0;
        const bool afterTheClick = what.act && !what.atBox; // the call at which somebody clicks still goes well
        const int first = afterTheClick ? 1 : 0;
        return at >= first && (what.fails < 0 || at < first + what.fails);
    };
    if (disturbance.atBox)
        clerk.instead = [this, &drive, &clerk, done = false](QMessageBox& box) mutable {
            if (done || m_disturbedCall.isEmpty() || box.standardButtons().testFlag(QMessageBox::Cancel))
                return false;
            done = true;
            Disturb(drive, int(clerk.texts.size()));
            return true;
        };
}

bool FaultMatrix::RunCase(int n) {
    CSteppedClock clock;
    const ClockScope clockScope(clock);
    WatchedDrive drive;
    PrepareDrive(drive);
    BoxClerk clerk(drive);
    m_calls = 0;
    m_disturbedCall.clear();
    m_endedBy = 0;
    m_linkDead = false;
    SetTrap(drive, clerk, n);
    RunWizardWith(drive, [&] {
        GetProcedure().Do();
        CheckRemains(drive, "when the procedure had ended");
    });
    if (GetDisturbance().act == EndApplication)
        RestartApplication();
    EXPECT_EQ(Robot::Front(), nullptr) << "a window was left";
    EXPECT_EQ(drive.violations.join("; ").toStdString(), "");
    CheckRemains(drive, "when the wizard had closed");
    for (const auto& [reg, word] : GetProcedure().connects)
        EXPECT_TRUE(!m_disturbedCall.isEmpty() || drive.words[reg] == word) << "what the person wants of " << reg;
    // More than one failure may take the way back as well.
    if (GetDisturbance().fails == 0 || GetDisturbance().fails == 1) {
        EXPECT_TRUE(drive.IsNamedMacroLoaded());
    }
    CheckReport(clerk);
    if (HasFailure())
        std::printf("    repeat with: KRT550_FAULT_CASE=%d, disturbed call: %s, boxes: %s\n", n,
                    m_disturbedCall.toUtf8().constData(), clerk.texts.join(" | ").toUtf8().constData());
    return !m_disturbedCall.isEmpty();
}

/// A dead link cannot be told to stop: the drive does that by itself.
void FaultMatrix::CheckRemains(const WatchedDrive& drive, const char* when) {
    if (m_linkDead)
        return;
    EXPECT_EQ(drive.Remains().join(", ").toStdString(), "") << when;
}

/// A single failed read or write is told once, in words that name the parameter.
void FaultMatrix::CheckReport(const BoxClerk& clerk) {
    // Whoever wanted out and got out has nothing to read about how it went.
    for (const QString& text : m_endedBy > 0 ? clerk.texts.mid(m_endedBy) : QStringList())
        EXPECT_FALSE(text.contains("successful") || text.contains("Autotuning failed")) << text.toStdString();
    const bool isAccess = m_disturbedCall.startsWith("read ") || m_disturbedCall.startsWith("write ");
    if (!isAccess || GetDisturbance().fails != 1 || GetDisturbance().act)
        return;
    const auto reports = std::ranges::count_if(clerk.texts, TellsOfLoss);
    if (m_disturbedCall == GetProcedure().ridesOut && reports == 0)
        return;
    EXPECT_EQ(reports, 1) << m_disturbedCall.toStdString() << " failed";
}

/// The same page, run again without the fault, succeeds.
void FaultMatrix::CheckAgain() {
    if (GetProcedure().step == 0)
        return;
    CSteppedClock clock;
    const ClockScope clockScope(clock);
    WatchedDrive drive;
    PrepareDrive(drive);
    BoxClerk clerk(drive);
    SetStepState(GetProcedure().step, StepState::NotChosen);
    RunWizardWith(drive, [this] { GetProcedure().Do(); });
    EXPECT_EQ(GetStepState(GetProcedure().step), StepState::Done) << "the next run failed";
}

TEST_P(FaultMatrix, LeavesTheDriveSafe) {
    const int only = qEnvironmentVariableIntValue("KRT550_FAULT_CASE");
    const int wanted = qEnvironmentVariableIntValue("KRT550_FAULT_STRIDE");
    const int stride = wanted > 0 ? wanted : kStride;
    int cases = 0;
    bool met = true;
    for (int n = only > 0 ? only : 1; met && n < 2000; n += stride) {
        SCOPED_TRACE("case " + std::to_string(n));
        ++cases;
        met = RunCase(n) && only == 0;
        // Seldom enough to cost little, often enough to be seen.
        if (n % 11 == 1 || !met)
            CheckAgain();
        if (HasFailure())
            break;
    }
    RecordProperty("cases", cases);
    std::printf("    %d cases\n", cases);
}

INSTANTIATE_TEST_SUITE_P(All, FaultMatrix, testing::ValuesIn(AllCases()), [](const auto& matrix) {
    return std::string(AllProcedures()[std::size_t(std::get<0>(matrix.param))].name) +
           kDisturbances[std::get<1>(matrix.param)].name;
});

} // namespace
} // namespace krt550
