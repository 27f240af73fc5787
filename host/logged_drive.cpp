#include "host/logged_drive.h"

#include "host/call_log.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvcom32/communication_facade.h"

namespace krt550 {
namespace {

QString YesNo(bool yes) {
    return yes ? QStringLiteral("yes") : QStringLiteral("no");
}

} // namespace

quint16 CLoggedDrive::ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                                      QByteArray& record) {
    const quint16 code = m_drive.ReadFaultBuffer(header, request, byteCount, record);
    m_log.Note("ReadFaultBuffer", QStringLiteral("%1 bytes").arg(record.size()),
               CCommunicationFacade::GetErrorMessage(code, true));
    return code;
}

CSAPDriveTexts* CLoggedDrive::GetDriveTexts() {
    CSAPDriveTexts* texts = m_drive.GetDriveTexts();
    m_log.Note("GetDriveTexts", texts ? QString() : QStringLiteral("none"), {});
    return texts;
}

bool CLoggedDrive::SetReference(const QString& reference) {
    const bool succeeded = m_drive.SetReference(reference);
    m_log.Note("SetReference", reference, Refusal(succeeded));
    return succeeded;
}

CDriveInfo* CLoggedDrive::GetDriveInfo() {
    CDriveInfo* info = m_drive.GetDriveInfo();
    m_log.Note("GetDriveInfo", info ? info->GetWizardPath() : QStringLiteral("none"), {});
    return info;
}

QString CLoggedDrive::GetReference() {
    const QString reference = m_drive.GetReference();
    m_log.Note("GetReference", reference, {});
    return reference;
}

quint32 CLoggedDrive::GetStatusWord() {
    const quint32 status = m_drive.GetStatusWord();
    m_log.Note("GetStatusWord", QString::number(status), {});
    return status;
}

bool CLoggedDrive::GetParameterRoot(CParameterGroup** root) {
    const bool succeeded = m_drive.GetParameterRoot(root);
    m_log.Note("GetParameterRoot", succeeded && !*root ? QStringLiteral("none") : QString(), Refusal(succeeded));
    return succeeded;
}

bool CLoggedDrive::RefreshState() {
    return Command("RefreshState", &CHostDrive::RefreshState);
}
bool CLoggedDrive::StartMotor() {
    return Command("StartMotor", &CHostDrive::StartMotor);
}
bool CLoggedDrive::StopMotor() {
    return Command("StopMotor", &CHostDrive::StopMotor);
}
bool CLoggedDrive::ResetFault() {
    return Command("ResetFault", &CHostDrive::ResetFault);
}
bool CLoggedDrive::OpenContactor() {
    return Command("OpenContactor", &CHostDrive::OpenContactor);
}
bool CLoggedDrive::CloseContactor() {
    return Command("CloseContactor", &CHostDrive::CloseContactor);
}
bool CLoggedDrive::TakeLocalControl() {
    return Command("TakeLocalControl", &CHostDrive::TakeLocalControl);
}
bool CLoggedDrive::ReleaseLocalControl() {
    return Command("ReleaseLocalControl", &CHostDrive::ReleaseLocalControl);
}
bool CLoggedDrive::IsLocalControlActive() {
    return Query("IsLocalControlActive", &CHostDrive::IsLocalControlActive);
}
bool CLoggedDrive::CheckCancelCondition() {
    return Query("CheckCancelCondition", &CHostDrive::CheckCancelCondition);
}
bool CLoggedDrive::CheckDiagnosisCondition() {
    return Query("CheckDiagnosisCondition", &CHostDrive::CheckDiagnosisCondition);
}

QString CLoggedDrive::Refusal(bool succeeded) const {
    if (succeeded)
        return {};
    const QString reason = m_link ? m_link->LastErrorText() : QString();
    return reason.isEmpty() ? QStringLiteral("refused") : reason;
}

bool CLoggedDrive::Command(const char* call, bool (CHostDrive::*operation)()) {
    const bool succeeded = (m_drive.*operation)();
    m_log.Note(call, {}, Refusal(succeeded));
    return succeeded;
}

bool CLoggedDrive::Query(const char* call, bool (CHostDrive::*operation)()) {
    const bool answer = (m_drive.*operation)();
    m_log.Note(call, YesNo(answer), {});
    return answer;
}

} // namespace krt550
