#pragma once

#include "drive/unit_texts.h"
#include "host/link/link_thread.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_description.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QTimer>

#include <memory>
#include <vector>

namespace krt550 {

/// A drive on a wire as the host offers it: commands and state here, parameters by its link. Every call waits for its
/// answer, for as long as the line's tries last at most. The state queries tell what the drive answered last.
class CModbusDrive : public CHostDrive {
public:
    /// `wizardFile` is what CDriveInfo::GetWizardPath answers.
    /// `now`: see CLinkThread.
    CModbusDrive(WirePlace place, std::vector<ParameterDescription> parameters, QString wizardFile,
                 CLine::Now now = CLine::Clock::now);

    /// Looks whether the drive is there. False, and the reason in `error`, when not.
    bool Connect(QString& error);
    CParameterLink& GetLink() { return m_link; }
    /// See CSimulatedHostDrive::SetTreeLink.
    void SetTreeLink(CParameterLink* link);
    const ParameterDescription* FindParameter(quint16 reg) const;

    quint16 ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                            QByteArray& record) override;
    CSAPDriveTexts* GetDriveTexts() override { return &m_texts; }
    bool SetReference(const QString& reference) override;
    bool IsLocalControlActive() override { return m_state.status & wire_status::kLocalControl; }
    bool RefreshState() override;
    CDriveInfo* GetDriveInfo() override { return &m_info; }
    bool StartMotor() override { return Command(WireCommand::StartMotor); }
    bool StopMotor() override;
    bool ResetFault() override { return Command(WireCommand::ResetFault); }
    QString GetReference() override;
    quint32 GetStatusWord() override { return m_state.status; }
    bool OpenContactor() override { return Command(WireCommand::OpenContactor); }
    bool CloseContactor() override { return Command(WireCommand::CloseContactor); }
    bool TakeLocalControl() override { return Command(WireCommand::TakeLocalControl); }
    bool ReleaseLocalControl() override { return Command(WireCommand::ReleaseLocalControl); }
    bool GetParameterRoot(CParameterGroup** root) override;
    /// Whoever holds local control leaves no turning motor behind.
    bool CheckCancelCondition() override { return IsLocalControlActive(); }
    bool CheckDiagnosisCondition() override { return m_link.isGood; }

private:
    class CInfo : public CDriveInfo {
    public:
        explicit CInfo(QString wizardFile) : m_wizardFile(std::move(wizardFile)) {}
        QString GetWizardPath() const override { return m_wizardFile; }

    private:
        QString m_wizardFile;
    };

    class CLink : public CParameterLink {
    public:
        explicit CLink(CLinkThread& thread) : m_thread(thread) {}

        bool ReadWord(quint16 reg, quint16& word) override;
        bool WriteWord(quint16 reg, quint16 word) override;
        QString LastErrorText() const override { return error; }
        void Announce(std::span<const quint16> registers) override { m_thread.Announce(registers); }
        bool Note(const LineResult& result);

        QString error;
        bool isGood = true; ///< the drive has answered what it was last asked

    private:
        CLinkThread& m_thread;
    };

    bool Command(WireCommand command, std::optional<double> rpm = {});

    std::vector<ParameterDescription> m_parameters;
    CLinkThread m_thread;
    CLink m_link{m_thread};
    QTimer m_beat;
    CUnitTexts m_texts;
    CInfo m_info;
    WireState m_state; ///< as the drive last told it in a call from here
    CParameterLink* m_treeLink = nullptr;
    std::unique_ptr<CParameterGroup> m_tree;
    std::vector<std::unique_ptr<CParameterGroup>> m_retiredTrees; ///< somebody may still hold parameters of them
};

} // namespace krt550
