#pragma once

#include "hostlib/host_drive.h"

namespace krt550 {

class CCallLog;

/// The drive as the tool hands it to the wizard: passes every call on to the connected drive and notes it.
class CLoggedDrive : public CHostDrive {
public:
    /// Both are borrowed.
    CLoggedDrive(CHostDrive& drive, CCallLog& log) : m_drive(drive), m_log(log) {}

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

    CHostDrive& m_drive;
    CCallLog& m_log;
};

} // namespace krt550
