#pragma once

#include "drive/fault_modes.h"
#include "drive/simulated_drive.h"
#include "drive/simulated_link.h"
#include "drive/unit_texts.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_group.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace krt550 {

/// Bits that GetStatusWord of the simulated drive sets beside kStatusStopped.
namespace host_status {
inline constexpr quint32 kContactorClosed = 1;
inline constexpr quint32 kRunning = 2;
inline constexpr quint32 kLocalControl = 4;
inline constexpr quint32 kFault = 8;
} // namespace host_status

/// The simulated drive as a host offers it: just another connected drive. The state queries tell what the drive
/// answered last: RefreshState fetches its state, and so does every command. While the drive does not answer they
/// keep telling the last known state. GetLastErrorText says why the last call failed, in words for a person.
///
/// Fault modes may be switched on and off at any time, also during a call's wait.
class CSimulatedHostDrive : public CHostDrive {
public:
    /// `wizardFile` is what CDriveInfo::GetWizardPath answers: a file in the wizard directory. `motor` as
    /// CSimulatedDrive takes it.
    CSimulatedHostDrive(std::vector<ParameterDescription> descriptions, QString wizardFile,
                        const MotorSet* motor = nullptr);
    ~CSimulatedHostDrive() override;

    /// The drive itself: its registers, its state and the counters of what it was told.
    CSimulatedDrive& GetDrive() { return m_drive; }
    /// The line to the drive.
    CParameterLink& GetLink() { return m_link; }
    /// Another line is in between, on which replies get lost or come late: this one leaves that to it.
    void LeaveRepliesToLine() { m_link.LeaveRepliesToLine(); }
    QString GetLastErrorText() const { return m_link.LastErrorText(); }
    /// Lets the parameter tree reach the drive through a link of the caller's (a log, a disturber) that passes on
    /// to GetLink(); null: directly. Borrowed, must outlive this. The tree is built anew.
    void SetTreeLink(CParameterLink* link);

    /// Switches a fault mode on by its text ("read-fails:9906"). False with `error` when the text is none.
    bool SetFaultMode(const QString& text, QString& error);
    void SetFaultMode(const FaultMode& mode);
    /// Switches off exactly this mode.
    void ClearFaultMode(const FaultMode& mode);
    void ClearFaultModes();
    const CFaultModes& GetFaultModes() const { return m_modes; }

    quint16 ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                            QByteArray& record) override;
    CSAPDriveTexts* GetDriveTexts() override { return &m_texts; }
    bool SetReference(const QString& reference) override;
    bool IsLocalControlActive() override { return m_status & host_status::kLocalControl; }
    bool RefreshState() override;
    CDriveInfo* GetDriveInfo() override { return &m_info; }
    bool StartMotor() override;
    bool StopMotor() override;
    bool ResetFault() override;
    QString GetReference() override;
    quint32 GetStatusWord() override { return m_status; }
    bool OpenContactor() override;
    bool CloseContactor() override;
    bool TakeLocalControl() override;
    bool ReleaseLocalControl() override;
    /// A tree handed out stays valid as long as this object, also when a fault mode has changed the registers since.
    bool GetParameterRoot(CParameterGroup** root) override;
    /// Whoever holds local control leaves no turning motor behind.
    bool CheckCancelCondition() override { return IsLocalControlActive(); }
    bool CheckDiagnosisCondition() override { return m_link.IsAlive(); }

private:
    class CInfo : public CDriveInfo {
    public:
        explicit CInfo(QString wizardFile) : m_wizardFile(std::move(wizardFile)) {}
        QString GetWizardPath() const override { return m_wizardFile; }

    private:
        QString m_wizardFile;
    };

    bool Command(const std::function<bool()>& command);
    void FetchStatus();
    void RetireTree();

    CSimulatedDrive m_drive;
    CFaultModes m_modes;
    CSimulatedLink m_link{m_drive, m_modes};
    CUnitTexts m_texts;
    CInfo m_info;
    CParameterLink* m_treeLink = nullptr;
    std::unique_ptr<CParameterGroup> m_tree;
    std::vector<std::unique_ptr<CParameterGroup>> m_retiredTrees;
    quint32 m_status = 0;
    double m_reference = 0; ///< last known [rpm]
};

} // namespace krt550
