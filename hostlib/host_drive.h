#pragma once

#include <QByteArray>
#include <QString>

namespace krt550 {

class CParameterGroup;

/// What the host knows about the installation of the connected drive.
class CDriveInfo {
public:
    virtual ~CDriveInfo() = default;
    /// Path of a file in the wizard directory; '/' and '\' both separate.
    virtual QString GetWizardPath() const = 0;
};

/// The drive's own texts.
class CSAPDriveTexts {
public:
    virtual ~CSAPDriveTexts() = default;
    /// Puts the text of a unit code into `text`; both leading arguments are always 0.
    virtual bool GetTextForParameterUnit(int table, int language, int unitCode, QString& text) const = 0;
};

/// Request of CHostDrive::ReadFaultBuffer: the 32-bit request code (1 = last fault) and four zero bytes.
struct FaultBufferRequest {
    quint32 code = 1;
    quint32 reserved = 0;
};

/// The host's object for one connected drive. Called on the user-interface thread only; borrowed by the
/// module for the length of RunWizard. The order of the operations is part of the contract.
class CHostDrive {
public:
    virtual ~CHostDrive() = default;

    /// Reads the record of the last fault into `record`. `header` goes in as 0, `*byteCount` as 39.
    /// Returns a communication error code, 0 = success (CCommunicationFacade::GetErrorMessage has its text).
    virtual quint16 ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                                    QByteArray& record) = 0;
    /// Null when the drive has no unit texts.
    virtual CSAPDriveTexts* GetDriveTexts() = 0;
    /// Sets the speed reference [rpm], given as decimal text.
    virtual bool SetReference(const QString& reference) = 0;
    /// True while this host holds local control of the drive.
    virtual bool IsLocalControlActive() = 0;
    /// Fetches the drive's state; called before every state query.
    virtual bool RefreshState() = 0;
    /// Null when the host knows nothing of the installation.
    virtual CDriveInfo* GetDriveInfo() = 0;
    virtual bool StartMotor() = 0;
    virtual bool StopMotor() = 0;
    virtual bool ResetFault() = 0;
    /// Current speed reference [rpm] as decimal text.
    virtual QString GetReference() = 0;
    /// Status bits; bit value 16 is set once the motor has stopped.
    virtual quint32 GetStatusWord() = 0;
    virtual bool OpenContactor() = 0;
    /// False: the contactor command failed.
    virtual bool CloseContactor() = 0;
    virtual bool TakeLocalControl() = 0;
    virtual bool ReleaseLocalControl() = 0;
    /// Root of the drive's parameter tree; only true with a non-null root counts.
    virtual bool GetParameterRoot(CParameterGroup** root) = 0;
    /// True when a cancelled page has to stop the motor.
    virtual bool CheckCancelCondition() = 0;
    /// True when the diagnosis parameter may be read now.
    virtual bool CheckDiagnosisCondition() = 0;
};

/// Status bit that GetStatusWord sets once the motor has stopped.
inline constexpr quint32 kStatusStopped = 16;

} // namespace krt550
