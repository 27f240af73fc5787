// Every procedure with a fault at every call: the n-th call to the host fails, once or from then on; Cancel or the
// close button comes at the n-th call. n runs from 1 until a run meets no fault. One case alone:
//   KRT550_FAULT_CASE=n test_fault_matrix --gtest_filter=<the test that failed>
#include "tests/assistants/feedback_drive.h"
#include "tests/shell/wizard_fixture.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace krt550 {
namespace {

constexpr int kDiagnosisDialog = 122;

enum class Disturbance { FailsOnce, FailsFromThenOn, Cancel, Close, Back, Next, OtherTab };

const char* NameOf(Disturbance disturbance) {
    switch (disturbance) {
    case Disturbance::FailsOnce:
        return "FailsOnce";
    case Disturbance::FailsFromThenOn:
        return "FailsFromThenOn";
    case Disturbance::Cancel:
        return "Cancel";
    case Disturbance::Close:
        return "Close";
    case Disturbance::Back:
        return "Back";
    case Disturbance::Next:
        return "Next";
    case Disturbance::OtherTab:
        break;
    }
    return "OtherTab";
}

/// What a person does in the wizard, from the start page on.
struct Procedure {
    const char* name;
    std::function<void()> act;
    /// Step that an undisturbed run marks done, 0 for none.
    int step;
    quint16 feedback = 1; ///< that the drive finds
    int endOfTuning = 0;  ///< button that ends a tacho's fine tuning
};

void PressIfThere(int id) {
    if (const QWidget* control = Robot::Find(id); control && control->isEnabled())
        Robot::Press(id);
}

void Tune(int box) {
    PressIfThere(box);
    PressIfThere(kNext);
    PressIfThere(kStartRun);
}

/// Closes the dialog as soon as it is there; gives up when nothing is in front any more.
void CloseDiagnosisDialog() {
    if (Robot::Layout() == kDiagnosisDialog)
        Robot::CloseWindow();
    else if (Robot::Front())
        QTimer::singleShot(1, qApp, CloseDiagnosisDialog);
}

void LookAtDiagnosis() {
    // The failed run enables the button.
    Tune(165);
    const QWidget* button = Robot::Find(kDiagnosis);
    if (!button || !button->isEnabled())
        return;
    QTimer::singleShot(1, qApp, CloseDiagnosisDialog);
    Robot::Press(kDiagnosis);
}

void ApplyNamePlate() {
    PressIfThere(160);
    PressIfThere(kNext);
    for (const quint16 reg : {quint16(9902), quint16(2002)})
        if (Robot::Find(ValueId(reg)) && Robot::IsEnabled(ValueId(reg)))
            Robot::Type(ValueId(reg), "300");
    PressIfThere(kApply);
    PressIfThere(kNext);
}

void ShowTab(int index) {
    auto* tabs = Robot::Front() ? Robot::Front()->findChild<QTabBar*>() : nullptr;
    if (tabs && tabs->isVisible())
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

void ChangeTabs() {
    PressIfThere(168);
    PressIfThere(kNext);
    for (const int tab : {1, 2, 0})
        ShowTab(tab);
}

/// Changes a row on every tab, moves the slider and goes on.
void ApplySpeedController() {
    constexpr int kSlider = 60211;
    PressIfThere(168);
    PressIfThere(kNext);
    int tab = 0;
    for (const quint16 reg : {quint16(2001), quint16(2003), quint16(5006)}) {
        ShowTab(tab++);
        if (Robot::Find(ValueId(reg)) && Robot::IsEnabled(ValueId(reg)))
            Robot::Type(ValueId(reg), "300");
    }
    if (QWidget* slider = Robot::Find(kSlider)) {
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Left);
    }
    PressIfThere(kNext);
}

void TurnByHand() {
    PressIfThere(167);
    PressIfThere(kNext);
    ShowTab(1);
    for (const int id : {kIdLocalOrRemote, kIdCloseContactor, kIdStartMotor, kIdSetNewReference, kIdStepUp,
                         kIdStopMotor, kIdStartMotor})
        PressIfThere(id);
    PressIfThere(kNext);
}

const Procedure kProcedures[] = {
    // Those with tabs first.
    {"Step5Encoder", [] { Tune(167); }, 5},
    {"Step5Tacho", [] { Tune(167); }, 5, 2, kStartRun},
    {"Step5TachoNext", [] { Tune(167); }, 5, 2, kNext},
    {"TurnByHand", TurnByHand, 5},
    {"Step6", [] { Tune(168); }, 6},
    {"ApplyStep6", ApplySpeedController, 6},
    {"ChangeTabs", ChangeTabs, 0},
    {"Step3", [] { Tune(165); }, 3},
    {"Step4", [] { Tune(166); }, 4},
    {"Step7", [] { Tune(169); }, 7},
    {"Apply", ApplyNamePlate, 1},
    {"OpenAndClose", [] { PressIfThere(158); }, 0},
    {"Diagnosis", LookAtDiagnosis, 0},
};
constexpr int kTabProcedures = 7;

/// Says OK to every message box and remembers the texts.
class BoxRecorder : public QObject {
public:
    BoxRecorder() { qApp->installEventFilter(this); }
    QStringList texts;
    bool confirmed = false; ///< the last confirmation was answered with OK

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* box = qobject_cast<QMessageBox*>(watched); box && event->type() == QEvent::Show) {
            texts.append(box->text());
            confirmed = confirmed || box->standardButtons().testFlag(QMessageBox::Cancel);
            QMetaObject::invokeMethod(
                box, [box] { box->button(QMessageBox::Ok)->click(); }, Qt::QueuedConnection);
        }
        return false;
    }
};

class MatrixDrive : public FeedbackDrive {
public:
    int calls = 0;
    bool running = false;
    bool startedUnconfirmed = false;
    QString disturbedCall;
};

class FaultMatrix : public testing::TestWithParam<std::tuple<int, Disturbance>> {
protected:
    FaultMatrix() {
        static const WizardFiles files("SLIDERVAL\t9\t2306\t50\nSLIDERVAL\t10\t2311\t60\n");
        m_wizardPath = files.WizardPath();
        EnsureStepStates();
    }

    const Procedure& GetProcedure() const { return kProcedures[std::get<0>(GetParam())]; }
    Disturbance GetDisturbance() const { return std::get<1>(GetParam()); }

    /// Runs the procedure with the disturbance at call `n`; true when the run came to that call.
    bool RunCase(int n);
    void Watch(MatrixDrive& drive, BoxRecorder& boxes, int n);
    void Disturb();
    void CheckDrive(const MatrixDrive& drive, const std::string& name);
    void CheckReport(const MatrixDrive& drive, const BoxRecorder& boxes, const std::string& name);
    void CheckAgain(const std::string& name);
    void PrepareDrive(MatrixDrive& drive) const;

    QString m_wizardPath;
};

void FaultMatrix::PrepareDrive(MatrixDrive& drive) const {
    drive.wizardPath = m_wizardPath;
    drive.found = GetProcedure().feedback;
    drive.onTuning = [id = GetProcedure().endOfTuning](int look) {
        if (look == 3)
            QTimer::singleShot(0, qApp, [id] { PressIfThere(id); });
    };
    if (GetProcedure().name == std::string("Diagnosis"))
        drive.outcome = 7;
}

void FaultMatrix::Watch(MatrixDrive& drive, BoxRecorder& boxes, int n) {
    const auto advance = drive.onCall;
    drive.onCall = [&drive, &boxes, advance](const QString& call) {
        if (call == "start motor") {
            drive.startedUnconfirmed = drive.startedUnconfirmed || !boxes.confirmed;
            // Whoever has agreed to turn the motor by hand may start it again, until local control is given back.
            boxes.confirmed = boxes.confirmed && drive.words[9906] == 0;
            drive.running = true;
        } else if (call == "stop motor") {
            drive.running = false;
        }
        advance(call);
    };
    drive.fails = [this, &drive, &boxes, n](const QString& call) {
        ++drive.calls;
        const bool here = drive.calls == n;
        if (here)
            drive.disturbedCall = call;
        switch (GetDisturbance()) {
        case Disturbance::FailsOnce:
            return here;
        case Disturbance::FailsFromThenOn:
            return drive.calls >= n;
        case Disturbance::Cancel:
        case Disturbance::Close:
        case Disturbance::Back:
        case Disturbance::Next:
        case Disturbance::OtherTab:
            if (here)
                QTimer::singleShot(0, &boxes, [this] { Disturb(); });
            break;
        }
        return false;
    };
}

/// A person cannot reach behind a message box.
void FaultMatrix::Disturb() {
    if (qobject_cast<QMessageBox*>(Robot::Front()))
        return;
    const auto click = [](int id) {
        if (auto* button = qobject_cast<QPushButton*>(Robot::Find(id)))
            button->click();
    };
    switch (GetDisturbance()) {
    case Disturbance::Close:
        return Robot::CloseWindow();
    case Disturbance::Cancel:
        return click(kCancel);
    case Disturbance::Back:
        return click(kBack);
    case Disturbance::Next:
        return click(kNext);
    case Disturbance::OtherTab:
        return ShowTab(1);
    case Disturbance::FailsOnce:
    case Disturbance::FailsFromThenOn:
        break;
    }
}

bool FaultMatrix::RunCase(int n) {
    const std::string name = "case " + std::to_string(n) + " of " + GetProcedure().name;
    CSteppedClock clock;
    const ClockScope clockScope(clock);
    MatrixDrive drive;
    PrepareDrive(drive);
    BoxRecorder boxes;
    Watch(drive, boxes, n);
    RunWizardWith(drive, GetProcedure().act);
    EXPECT_EQ(Robot::Front(), nullptr) << name << ": a window was left";
    CheckDrive(drive, name);
    CheckReport(drive, boxes, name);
    if (HasFailure())
        std::printf("    repeat with: KRT550_FAULT_CASE=%d, disturbed call: %s\n", n,
                    drive.disturbedCall.toUtf8().constData());
    return !drive.disturbedCall.isEmpty();
}

void FaultMatrix::CheckDrive(const MatrixDrive& drive, const std::string& name) {
    EXPECT_FALSE(drive.startedUnconfirmed) << name << ": the motor was started without a confirmation";
    // A dead link cannot be told to stop: the drive does that by itself.
    if (GetDisturbance() == Disturbance::FailsFromThenOn)
        return;
    EXPECT_FALSE(drive.localControl) << name << ": local control was not given back";
    EXPECT_FALSE(drive.running) << name << ": the motor was not stopped";
}

/// A single failed read or write is told once, in words that name the parameter.
void FaultMatrix::CheckReport(const MatrixDrive& drive, const BoxRecorder& boxes, const std::string& name) {
    const bool isAccess = drive.disturbedCall.startsWith("read ") || drive.disturbedCall.startsWith("write ");
    if (GetDisturbance() != Disturbance::FailsOnce || !isAccess)
        return;
    int reports = 0;
    for (const QString& text : boxes.texts)
        reports += text.contains("simulated failure") || text.contains("did not answer");
    EXPECT_EQ(reports, 1) << name << ": " << drive.disturbedCall.toStdString()
                          << " failed; boxes: " << boxes.texts.join(" | ").toStdString();
}

void FaultMatrix::CheckAgain(const std::string& name) {
    if (GetProcedure().step == 0)
        return;
    CSteppedClock clock;
    const ClockScope clockScope(clock);
    MatrixDrive drive;
    PrepareDrive(drive);
    BoxRecorder boxes;
    SetStepState(GetProcedure().step, StepState::NotChosen);
    RunWizardWith(drive, GetProcedure().act);
    EXPECT_EQ(GetStepState(GetProcedure().step), StepState::Done) << name << ": the next run failed";
}

TEST_P(FaultMatrix, LeavesTheDriveSafe) {
    const int only = qEnvironmentVariableIntValue("KRT550_FAULT_CASE");
    int cases = 0;
    for (int n = only > 0 ? only : 1; n < 2000; ++n) {
        ++cases;
        const bool met = RunCase(n);
        CheckAgain("after case " + std::to_string(n));
        if (!met || only > 0)
            break;
    }
    RecordProperty("cases", cases);
    std::printf("    %d cases\n", cases);
}

std::string NameOfCase(const testing::TestParamInfo<std::tuple<int, Disturbance>>& matrix) {
    return std::string(kProcedures[std::get<0>(matrix.param)].name) + NameOf(std::get<1>(matrix.param));
}

INSTANTIATE_TEST_SUITE_P(All, FaultMatrix,
                         testing::Combine(testing::Range(0, int(std::size(kProcedures))),
                                          testing::Values(Disturbance::FailsOnce, Disturbance::FailsFromThenOn,
                                                          Disturbance::Cancel, Disturbance::Close)),
                         NameOfCase);

INSTANTIATE_TEST_SUITE_P(Tabs, FaultMatrix,
                         testing::Combine(testing::Range(0, kTabProcedures),
                                          testing::Values(Disturbance::Back, Disturbance::Next, Disturbance::OtherTab)),
                         NameOfCase);

} // namespace
} // namespace krt550
