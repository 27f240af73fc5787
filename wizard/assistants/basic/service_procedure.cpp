#include "wizard/assistants/basic/service_procedure.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/diagnosis/diagnosis_dialog.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/params/drive_commands.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>
#include <utility>

namespace krt550 {
namespace {

constexpr int kFailureText = 243;
constexpr int kStartDeniedText = 574;
constexpr int kSettleMs = 200;
/// Bits of 8.01 that deny a start: the drive is ready to run, or runs, on another source's command.
constexpr quint16 kStartDeniedBits = 2 | 4;

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

bool IsStartPermitted(CHostDrive& drive) {
    drive.RefreshState();
    if (drive.IsLocalControlActive())
        return false;
    if (CParameterGroup* root = GetParameterRoot(&drive)) {
        CParameter* status = root->FindChildByRegister(QStringLiteral("801"));
        if (status && ReadParameter(status) && (status->GetValue() & kStartDeniedBits) != 0)
            return false;
    }
    drive.TakeLocalControl();
    drive.RefreshState();
    const bool permitted = drive.IsLocalControlActive();
    drive.ReleaseLocalControl();
    drive.RefreshState();
    return permitted;
}

void ShowStartDenied() {
    ShowMessageBox(LoadText(kStartDeniedText), MessageIcon::Stop);
}

bool StartInServiceMode(CHostDrive& drive, CParameter& serviceMode, quint16 mode) {
    serviceMode.SetValue(mode, false);
    if (!WriteParameter(&serviceMode))
        return false;
    CClock::Current().Sleep(kSettleMs);
    drive.RefreshState();
    if (!drive.IsLocalControlActive() && !drive.TakeLocalControl())
        return false;
    CloseContactorAndStart(&drive);
    return true;
}

void EndServiceMode(CParameter* serviceMode) {
    if (!serviceMode)
        return;
    serviceMode->SetValue(0, false);
    WriteParameter(serviceMode);
}

void GiveBackLocalControl(CHostDrive& drive) {
    drive.RefreshState();
    if (drive.IsLocalControlActive())
        drive.ReleaseLocalControl();
}

void StopAndGiveBack(CHostDrive& drive) {
    drive.RefreshState();
    if (!drive.IsLocalControlActive())
        return;
    if ((drive.GetStatusWord() & kStatusStopped) == 0)
        StopAndOpenContactor(&drive);
    drive.ReleaseLocalControl();
}

void ShowRunFailure(CParameterGroup* root) {
    QString text;
    GetDiagnosisText(root, kFailureText, text);
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

bool CQuietReads::Read(CParameter* parameter) {
    if (!parameter)
        return false;
    const bool read = parameter->ReadFromDrive();
    if (!read && std::ranges::find(m_failed, parameter) == m_failed.end())
        m_failed.push_back(parameter);
    return read;
}

void CQuietReads::ShowFailures() {
    const std::vector<const CParameterSet*> failed = std::exchange(m_failed, {});
    for (const CParameterSet* parameter : failed)
        ShowLastError(parameter);
}

} // namespace krt550
