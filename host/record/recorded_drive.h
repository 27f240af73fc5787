#pragma once

#include "hostlib/host_drive.h"

namespace krt550 {

class CAsFound;
class CRecorder;
class CRunWatch;

/// Passes every call on to another drive and records the commands. What makes the drive more alive is on the disk
/// before it is sent. What makes it calmer never waits for the disk: stop, contactor off, local control given back, a
/// reference of 0 are sent first and recorded then.
class CRecordedDrive : public CHostDrive {
public:
    /// All borrowed.
    CRecordedDrive(CHostDrive& drive, CRecorder& recorder, CAsFound& asFound, CRunWatch& runs)
        : m_drive(drive), m_recorder(recorder), m_asFound(asFound), m_runs(runs) {}

    quint16 ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                            QByteArray& record) override;
    CSAPDriveTexts* GetDriveTexts() override { return m_drive.GetDriveTexts(); }
    bool SetReference(const QString& reference) override;
    bool IsLocalControlActive() override { return m_drive.IsLocalControlActive(); }
    bool RefreshState() override { return m_drive.RefreshState(); }
    CDriveInfo* GetDriveInfo() override { return m_drive.GetDriveInfo(); }
    bool StartMotor() override;
    bool StopMotor() override;
    bool ResetFault() override;
    QString GetReference() override { return m_drive.GetReference(); }
    quint32 GetStatusWord() override;
    bool OpenContactor() override;
    bool CloseContactor() override;
    bool TakeLocalControl() override;
    bool ReleaseLocalControl() override;
    bool GetParameterRoot(CParameterGroup** root) override { return m_drive.GetParameterRoot(root); }
    bool CheckCancelCondition() override { return m_drive.CheckCancelCondition(); }
    bool CheckDiagnosisCondition() override { return m_drive.CheckDiagnosisCondition(); }

private:
    template <class Send> bool Command(const char* name, const QString& argument, bool isStop, Send send);
    bool Command(const char* name, bool (CHostDrive::*operation)());
    bool Stop(const char* name, bool (CHostDrive::*operation)());

    CHostDrive& m_drive;
    CRecorder& m_recorder;
    CAsFound& m_asFound;
    CRunWatch& m_runs;
};

} // namespace krt550
