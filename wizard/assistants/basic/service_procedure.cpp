#include "wizard/assistants/basic/service_procedure.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/diagnosis/diagnosis_dialog.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr int kFailureText = 243;
constexpr int kStartDeniedText = 574;

} // namespace

bool StartConditionHolds(int step, CParameterGroup* root) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    QList<quint16> registers;
    if (!store.GetStartConditionRegisters(static_cast<quint16>(step), registers))
        return true;
    QList<quint16> values;
    for (const quint16 reg : registers) {
        CParameter* parameter = FindParameter(root, reg);
        if (!ReadParameter(parameter))
            return false;
        values.append(parameter->GetValue());
    }
    return store.StartConditionHolds(static_cast<quint16>(step), registers, values);
}

void AddStartConditionReads(int step, std::vector<quint16>& registers) {
    QList<quint16> condition;
    if (CWizardTextStore::Instance().GetStartConditionRegisters(static_cast<quint16>(step), condition))
        registers.insert(registers.end(), condition.begin(), condition.end());
}

bool AskPermission(CMotorRun& run) {
    if (run.IsPermitted())
        return true;
    if (run.IsWanted())
        ShowMessageBox(LoadText(kStartDeniedText), MessageIcon::Stop);
    return false;
}

Ending FailedOrAborted(CMotorRun& run) {
    return run.IsWanted() ? Ending::Failed : Ending::Aborted;
}

void ShowRunFailure(const CSheetWizard* sheet) {
    QString text;
    GetDiagnosisText(GetPageParameterRoot(sheet), kFailureText, text);
    if (!sheet || !sheet->IsClosing())
        ShowMessageBox(text, MessageIcon::Stop);
}

void ReadFaultAfterRun(CHostDrive* drive, QWidget* diagnosisButton) {
    SetDiagnosisDrive(drive);
    QString message;
    if (ReadFaultRecord(message)) {
        if (HasActiveFaultCode())
            EnableControl(diagnosisButton, true);
    } else if (!message.isEmpty()) {
        ShowMessageBox(message, MessageIcon::None);
    }
}

void ShowDiagnosis(CHostDrive* drive, MessageIcon icon) {
    SetDiagnosisDrive(drive);
    QString message;
    if (!ReadFaultRecord(message) && !message.isEmpty())
        ShowMessageBox(message, icon);
    CDiagnosisDialog().DoModal();
}

} // namespace krt550
