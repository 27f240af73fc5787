#include "tests/assistants/procedures.h"

#include "tests/assistants/tuning_drive.h"
#include "tests/shell/wizard_fixture.h"
#include "wizard/platform/pointer_ids.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/resources/terminal_overview.h"

#include <QApplication>
#include <QListWidget>
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

/// Sends the field forward and back and stops.
void WorkField(int look) {
    const std::map<int, int> presses = {{2, kIdFieldForward}, {4, kIdFieldReverse}, {6, kIdFieldStop}};
    if (const auto press = presses.find(look); press != presses.end())
        QTimer::singleShot(0, qApp, [id = press->second] { PressIfThere(id); });
}

void ReverseField() {
    PressIfThere(kView);
    PressIfThere(175);
    PressIfThere(kNext);
    PressIfThere(kStartRun);
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
        if (!Robot::Find(id))
            PressIfThere(kIdPointerView); // a word's edit is shown in the advanced view
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

/// Loads another macro.
void ChooseMacro() {
    PressIfThere(164);
    PressIfThere(kNext);
    if (Robot::Find(ValueId(9908)) && Robot::IsEnabled(ValueId(9908)))
        Robot::Choose(ValueId(9908), "Jogging");
    PressIfThere(kApply);
    PressIfThere(kNext);
}

/// Does something in a window as soon as it is in front; gives up when there is no window any more.
void WhenInFront(int layout, const std::function<void()>& act) {
    if (Robot::Layout() == layout)
        act();
    else if (Robot::Front())
        QTimer::singleShot(1, qApp, [=] { WhenInFront(layout, act); });
}

/// Presses what opens a dialog; what is done there happens before this is over.
void PressAndWhenInFront(int id, int layout, const std::function<void()>& act) {
    const QWidget* control = Robot::Find(id);
    if (!control || !control->isEnabled())
        return;
    QTimer::singleShot(1, qApp, [=] { WhenInFront(layout, act); });
    Robot::Press(id);
}

/// Ticks these functions, and no others.
void Pick(const QStringList& names) {
    if (auto* list = qobject_cast<QListWidget*>(Robot::Find(kIdConnectionList)))
        for (int item = 0; item < list->count(); ++item)
            if (list->item(item)->flags().testFlag(Qt::ItemIsUserCheckable))
                list->item(item)->setCheckState(names.contains(list->item(item)->text()) ? Qt::Checked : Qt::Unchecked);
    PressIfThere(kIdCloseDialog);
}

void OpenTerminals(TerminalKind kind, int layout, const std::function<void()>& act) {
    if (!Robot::Find(171))
        PressIfThere(kView);
    PressIfThere(171);
    PressIfThere(kNext);
    PressAndWhenInFront(EditParametersId(kind), layout, [act] {
        act();
        PressIfThere(kApply);
        PressIfThere(kIdCloseDialog);
    });
    PressIfThere(kNext);
}

void EditDigital() {
    OpenTerminals(TerminalKind::DigitalInput, 141, [] {
        PressAndWhenInFront(DigitalId(DigitalGroup::Inputs, 1, kDigitalEdit), 142, [] { Pick({"Run"}); });
        PressIfThere(DigitalId(DigitalGroup::Inputs, 2, kDigitalInvert));
        const int choice = DigitalId(DigitalGroup::Outputs, 1, kDigitalChoice);
        if (Robot::Find(choice) && Robot::IsEnabled(choice))
            Robot::Choose(choice, "801, 2 Running");
    });
}

void EditAnalogueInputs() {
    OpenTerminals(TerminalKind::AnalogueInput, 59,
                  [] { PressAndWhenInFront(ChannelId(1, kChannelEdit), 143, [] { Pick({"Torque"}); }); });
}

void EditAnalogueOutputs() {
    OpenTerminals(TerminalKind::AnalogueOutput, 140, [] {
        const int choice = ChannelId(1, kChannelChoice);
        if (Robot::Find(choice) && Robot::IsEnabled(choice))
            Robot::Choose(choice, "104 Speed");
    });
}

const Procedure kProcedures[] = {
    {.name = "Macro", .act = ChooseMacro, .step = 2, .connects = {{9908, 1}}},
    {.name = "Digital",
     .act = EditDigital,
     .step = 0,
     .connects = {{1005, 0}, {1006, 1}, {1026, 1}, {1401, 801}, {1402, 2}}},
    {.name = "AnalogueInputs", .act = EditAnalogueInputs, .step = 0, .connects = {{1101, 0}, {2503, 1}}},
    {.name = "AnalogueOutputs", .act = EditAnalogueOutputs, .step = 0, .connects = {{1501, 104}}},
    {"ApplyProtections",
     [] {
         ApplySpecial(173, {ValueId(3013), ValueId(2014)});
     },
     0, 1, 0, true},
    {"Apply12Pulse",
     [] {
         ApplySpecial(178, {ValueId(9401), ValueId(4702)});
     },
     0, 1, 0, true},
    {"ApplySerial",
     [] {
         ApplySpecial(179, {ValueId(5001), PointerId(1, kPointerIndex)});
     },
     0, 1, 0, true},
    {"ApplyMasterFollower",
     [] {
         ApplySpecial(177, {kIdMailBoxId, kIdMailBoxId});
     },
     0, 1, 0, true},
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
    {.name = "FieldReversal",
     .act = ReverseField,
     .step = 0,
     .looks = 40,
     .atLook = WorkField,
     .ridesOut = "read 9906"},
    {"Apply", ApplyNamePlate, 1},
    {"OpenAndClose", [] { PressIfThere(158); }, 0},
    {"Diagnosis", LookAtDiagnosis, 0, 1, 0, false, true},
};

} // namespace

std::span<const Procedure> AllProcedures() {
    return kProcedures;
}

} // namespace krt550
