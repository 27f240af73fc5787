#include "tests/assistants/procedures.h"

#include "tests/assistants/tuning_drive.h"
#include "tests/shell/wizard_fixture.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QTimer>

namespace krt550 {

void PressIfThere(int id) {
    if (const QWidget* control = Robot::Find(id); control && control->isEnabled())
        Robot::Press(id);
}

void ShowTab(int index) {
    auto* tabs = Robot::Front() ? Robot::Front()->findChild<QTabBar*>() : nullptr;
    if (tabs && tabs->isVisible())
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

namespace {

constexpr int kDiagnosisDialog = 122;

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

/// Changes rows of a specific assistant on each of its tabs, applies them and goes on.
void ApplySpecial(int box, std::initializer_list<int> edits) {
    constexpr int kView = 170;
    PressIfThere(kView);
    PressIfThere(box);
    PressIfThere(kNext);
    int tab = 0;
    for (const int id : edits) {
        if (tab > 0)
            ShowTab(tab);
        if (Robot::Find(id) && Robot::IsEnabled(id))
            Robot::Type(id, "22");
        ++tab;
    }
    PressIfThere(kApply);
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
    {"ApplyProtections", [] { ApplySpecial(173, {ValueId(3013), ValueId(2014)}); }, 0, 1, 0, true},
    {"Apply12Pulse", [] { ApplySpecial(178, {ValueId(9401), ValueId(4702)}); }, 0, 1, 0, true},
    {"ApplyEStop", [] { ApplySpecial(174, {733}); }, 0},
    {"ApplyFieldExciter", [] { ApplySpecial(176, {192}); }, 0},
    {"ApplyConfigurable", [] { ApplySpecial(180, {ConfigurableValueId(1)}); }, 0},
    {"Step5Encoder", [] { Tune(167); }, 5, 1, 0, true},
    {"Step5Tacho", [] { Tune(167); }, 5, 2, kStartRun, true},
    {"Step5TachoNext", [] { Tune(167); }, 5, 2, kNext, true},
    {"TurnByHand", TurnByHand, 5, 1, 0, true},
    {"Step6", [] { Tune(168); }, 6, 1, 0, true},
    {"ApplyStep6", ApplySpeedController, 6, 1, 0, true},
    {"ChangeTabs", ChangeTabs, 0, 1, 0, true},
    {"Step3", [] { Tune(165); }, 3},
    {"Step4", [] { Tune(166); }, 4},
    {"Step7", [] { Tune(169); }, 7},
    {"Apply", ApplyNamePlate, 1},
    {"OpenAndClose", [] { PressIfThere(158); }, 0},
    {"Diagnosis", LookAtDiagnosis, 0, 1, 0, false, true},
};

} // namespace

std::span<const Procedure> AllProcedures() {
    return kProcedures;
}

} // namespace krt550
