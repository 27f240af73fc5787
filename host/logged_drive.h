#pragma once

#include "hostlib/host_drive.h"

namespace krt550 {

class CCallLog;
class CParameterLink;

/// The drive as the tool hands it to the wizard: passes every call on to the connected drive and notes it.
class CLoggedDrive : public CHostDrive {
public:
    /// All are borrowed. `link`, where there is one, says why a command failed.
    CLoggedDrive(CHostDrive& drive, CCallLog& log, const CParameterLink* link = nullptr)
        : m_drive(drive), m_log(log), m_link(link) {}

    quint16 ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                            QByteArray& record) override;
    CSAPDriveTexts* GetDriveTexts() override;
    bool SetReference(const QString& reference) override;
    bool IsLocalControlActive() override;
    bool RefreshState() override;
    CDriveInfo* GetDriveInfo() override;
    bool StartMotor() override;
    bool StopMotor() override;
    bool ResetFault() override;
    QString GetReference() override;
    quint32 GetStatusWord() override;
    bool OpenContactor() override;
    bool CloseContactor() override;
    bool TakeLocalControl() override;
    bool ReleaseLocalControl() override;
    bool GetParameterRoot(CParameterGroup** root) override;
    bool CheckCancelCondition() override;
    bool CheckDiagnosisCondition() override;

private:
    bool Command(const char* call, bool (CHostDrive::*operation)());
    bool Query(const char* call, bool (CHostDrive::*operation)());

    QString Refusal(bool succeeded) const;

    CHostDrive& m_drive;
    CCallLog& m_log;
    const CParameterLink* m_link;
};

} // namespace krt550
