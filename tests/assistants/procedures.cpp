#include "tests/assistants/procedures.h"

#include "tests/assistants/tuning_drive.h"
#include "tests/shell/wizard_fixture.h"
#include "wizard/platform/pointer_ids.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/resources/terminal_overview.h"

#include <QTest>

namespace krt550 {

void PressIfThere(int id) {
    if (const QWidget* control = Robot::Find(id); control && control->isEnabled())
        Robot::Press(id);
}

namespace {

constexpr int kDiagnosisDialog = 122;
constexpr int kSlider = 60211;

void EnterIfThere(int id, const QString& text) {
    if (Robot::Find(id) && Robot::IsEnabled(id))
        Robot::Enter(id, text);
}

void Run() {
    PressIfThere(kStartRun);
}

/// Sends the field forward and back and stops.
void WorkField(int look) {
    const std::map<int, int> presses = {{2, kIdFieldForward}, {4, kIdFieldReverse}, {6, kIdFieldStop}};
    if (const auto press = presses.find(look); press != presses.end())
        QTimer::singleShot(0, qApp, [id = press->second] { PressIfThere(id); });
}

/// Presses what opens a dialog; what is done there happens before this is over.
void PressAndWhenInFront(int id, int layout, const std::function<void()>& act) {
    const QWidget* control = Robot::Find(id);
    if (!control || !control->isEnabled())
        return;
    Robot::WhenInFront(layout, act);
    Robot::Press(id);
}

void LookAtDiagnosis() {
    Run(); // fails, which enables the button
    PressAndWhenInFront(kDiagnosis, kDiagnosisDialog, Robot::CloseWindow);
}

void Apply() {
    PressIfThere(kApply);
    PressIfThere(kNext);
}

void ApplyNamePlate() {
    for (const quint16 reg : {quint16(9902), quint16(2002)})
        EnterIfThere(ValueId(reg), "300");
    Apply();
}

void ChangeTabs() {
    for (const int tab : {1, 2, 0})
        Robot::ShowTab(tab);
}

/// Changes a row on every tab, moves the slider and goes on.
void ApplySpeedController() {
    int tab = 0;
    for (const quint16 reg : {quint16(2001), quint16(2003), quint16(5006)}) {
        Robot::ShowTab(tab++);
        EnterIfThere(ValueId(reg), "300");
    }
    if (QWidget* slider = Robot::Find(kSlider)) {
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Left);
    }
    PressIfThere(kNext);
}

void TurnByHand() {
    Robot::ShowTab(1);
    for (const int id : {kIdLocalOrRemote, kIdCloseContactor, kIdStartMotor, kIdSetNewReference, kIdStepUp,
                         kIdStopMotor, kIdStartMotor})
        PressIfThere(id);
    PressIfThere(kNext);
}

/// Loads another macro.
void ChooseMacro() {
    EnterIfThere(ValueId(9908), "Jogging");
    Apply();
}

/// Ticks these functions, and no others.
void Pick(const QStringList& names) {
    if (auto* list = qobject_cast<QListWidget*>(Robot::Find(kIdConnectionList)))
        for (int item = 0; item < list->count(); ++item)
            if (list->item(item)->flags().testFlag(Qt::ItemIsUserCheckable))
                list->item(item)->setCheckState(names.contains(list->item(item)->text()) ? Qt::Checked : Qt::Unchecked);
    PressIfThere(kIdCloseDialog);
}

void InTerminalDialog(TerminalKind kind, int layout, const std::function<void()>& act) {
    PressAndWhenInFront(EditParametersId(kind), layout, [act] {
        act();
        PressIfThere(kApply);
        PressIfThere(kIdCloseDialog);
    });
    PressIfThere(kNext);
}

void EditDigital() {
    InTerminalDialog(TerminalKind::DigitalInput, 141, [] {
        PressAndWhenInFront(DigitalId(DigitalGroup::Inputs, 1, kDigitalEdit), 142, [] { Pick({"Run"}); });
        PressIfThere(DigitalId(DigitalGroup::Inputs, 2, kDigitalInvert));
        EnterIfThere(DigitalId(DigitalGroup::Outputs, 1, kDigitalChoice), "801, 2 Running");
    });
}

void EditAnalogueInputs() {
    InTerminalDialog(TerminalKind::AnalogueInput, 59,
                     [] { PressAndWhenInFront(ChannelId(1, kChannelEdit), 143, [] { Pick({"Torque"}); }); });
}

void EditAnalogueOutputs() {
    InTerminalDialog(TerminalKind::AnalogueOutput, 140,
                     [] { EnterIfThere(ChannelId(1, kChannelChoice), "104 Speed actual"); });
}

const Procedure kProcedures[] = {
    {.name = "Macro", .box = 164, .act = ChooseMacro, .step = 2, .connects = {{9908, 1}}},
    {.name = "Digital",
     .box = 171,
     .act = EditDigital,
     .connects = {{1005, 0}, {1006, 1}, {1026, 1}, {1401, 801}, {1402, 2}}},
    {.name = "AnalogueInputs", .box = 171, .act = EditAnalogueInputs, .connects = {{1101, 0}, {2503, 1}}},
    {.name = "AnalogueOutputs", .box = 171, .act = EditAnalogueOutputs, .connects = {{1501, 104}}},
    {.name = "ApplyProtections", .box = 173, .edits = {ValueId(3013), ValueId(2014)}, .hasTabs = true},
    {.name = "Apply12Pulse", .box = 178, .edits = {ValueId(9401), ValueId(4702)}, .hasTabs = true},
    {.name = "ApplySerial", .box = 179, .edits = {ValueId(5001), PointerId(1, kPointerIndex)}, .hasTabs = true},
    {.name = "ApplyMasterFollower", .box = 177, .edits = {kIdMailBoxId, kIdMailBoxId}, .hasTabs = true},
    {.name = "ApplyEStop", .box = 174, .edits = {733}},
    {.name = "ApplyFieldExciter", .box = 176, .edits = {192}},
    {.name = "ApplyConfigurable", .box = 180, .edits = {ConfigurableValueId(1)}},
    {.name = "Step5Encoder", .box = 167, .act = Run, .step = 5, .hasTabs = true},
    {.name = "Step5Tacho", .box = 167, .act = Run, .step = 5, .feedback = 2, .endOfTuning = kStartRun, .hasTabs = true},
    {.name = "Step5TachoNext", .box = 167, .act = Run, .step = 5, .feedback = 2, .endOfTuning = kNext, .hasTabs = true},
    {.name = "TurnByHand", .box = 167, .act = TurnByHand, .step = 5, .hasTabs = true},
    {.name = "Step6", .box = 168, .act = Run, .step = 6, .hasTabs = true},
    {.name = "ApplyStep6", .box = 168, .act = ApplySpeedController, .step = 6, .hasTabs = true},
    {.name = "ChangeTabs", .box = 168, .act = ChangeTabs, .hasTabs = true},
    {.name = "Step3", .box = 165, .act = Run, .step = 3},
    {.name = "Step4", .box = 166, .act = Run, .step = 4},
    {.name = "Step7", .box = 169, .act = Run, .step = 7},
    {.name = "FieldReversal", .box = 175, .act = Run, .looks = 40, .atLook = WorkField, .ridesOut = "read 9906"},
    {.name = "Apply", .box = 160, .act = ApplyNamePlate, .step = 1},
    {.name = "OpenAndClose", .act = [] { PressIfThere(kStart); }},
    {.name = "Diagnosis", .box = 165, .act = LookAtDiagnosis, .fails = true},
};

} // namespace

void Procedure::Do() const {
    if (box != 0) {
        if (!Robot::Find(box))
            PressIfThere(kView);
        PressIfThere(box);
        PressIfThere(kNext);
    }
    if (act)
        return act();
    int tab = 0;
    for (const int id : edits) {
        if (tab > 0)
            Robot::ShowTab(tab);
        if (!Robot::Find(id))
            PressIfThere(kIdPointerView); // a word's edit is shown in the advanced view
        EnterIfThere(id, "22");
        ++tab;
    }
    Apply();
}

std::span<const Procedure> AllProcedures() {
    return kProcedures;
}

} // namespace krt550
