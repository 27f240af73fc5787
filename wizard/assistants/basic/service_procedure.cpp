#include "wizard/assistants/basic/service_procedure.h"

#include "wizard/diagnosis/diagnosis_dialog.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/failure_pass.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/shell/sheet_wizard.h"

namespace krt550 {
namespace {

constexpr int kFailureText = 243;
constexpr int kStartDeniedText = 574;

/// False, having said why, when the record could not be read.
bool ReadRecord(CHostDrive* drive, MessageIcon icon) {
    SetDiagnosisDrive(drive);
    QString message;
    if (ReadFaultRecord(message))
        return true;
    if (!message.isEmpty() && !LossMemory::IsLost())
        ShowMessageBox(message, icon);
    return false;
}

} // namespace

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
    if (ReadRecord(drive, MessageIcon::None) && HasActiveFaultCode())
        EnableControl(diagnosisButton, true);
}

void ShowDiagnosis(CHostDrive* drive, MessageIcon icon) {
    {
        const LossMemory::Scope told(LossMemory::Since::Now);
        ReadRecord(drive, icon);
    }
    CDiagnosisDialog().DoModal();
}

} // namespace krt550
