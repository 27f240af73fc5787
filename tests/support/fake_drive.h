#pragma once

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "tests/support/descriptions.h"

namespace krt550 {

/// A drive made of words that writes every call into one readable log: "read 9902", "write 9902=2400", "stop motor".
class FakeDrive : public CHostDrive, public CParameterLink, public CDriveInfo {
public:
    explicit FakeDrive(std::vector<ParameterDescription> parameters);

    /// Called with every call's log entry before the call has its effect.
    std::function<void(const QString& call)> onCall;

    /// Asked at every call; true lets the call fail without effect.
    std::function<bool(const QString& call)> fails;

    /// The log since the last call.
    QStringList TakeLog();
    /// Those entries of TakeLog that begin with one of these words.
    QStringList TakeLog(const QStringList& beginnings);

    std::map<quint16, quint16> words;
    std::set<quint16> unreadable;
    std::set<quint16> unwritable;
    bool hasRoot = true;
    bool hasInfo = true;
    bool localControl = false;
    bool grantsLocalControl = true;
    quint16 faultBufferError = 1;
    QByteArray faultRecord;
    bool cancelCondition = true;
    quint32 statusWord = kStatusStopped;
    QString wizardPath;

    CParameterGroup& Root() { return *m_root; }
    /// Lets the parameters reach the drive through a link that passes on to it. Before anybody has asked for the root.
    void SetTreeLink(CParameterLink& link);

    // CParameterLink
    bool ReadWord(quint16 reg, quint16& word) override;
    bool WriteWord(quint16 reg, quint16 word) override;
    QString LastErrorText() const override { return QStringLiteral("simulated failure"); }

    // CDriveInfo
    QString GetWizardPath() const override { return wizardPath; }

    // CHostDrive
    quint16 ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                            QByteArray& record) override;
    CSAPDriveTexts* GetDriveTexts() override { return nullptr; }
    bool SetReference(const QString& reference) override { return Note("set reference " + reference); }
    bool IsLocalControlActive() override { return localControl; }
    bool RefreshState() override { return Note("refresh"); }
    CDriveInfo* GetDriveInfo() override { return hasInfo ? this : nullptr; }
    bool StartMotor() override { return Note("start motor"); }
    bool StopMotor() override { return Note("stop motor"); }
    bool ResetFault() override { return Note("reset fault"); }
    QString GetReference() override { return QStringLiteral("0"); }
    quint32 GetStatusWord() override { return statusWord; }
    bool OpenContactor() override { return Note("open contactor"); }
    bool CloseContactor() override { return Note("close contactor"); }
    bool TakeLocalControl() override;
    bool ReleaseLocalControl() override;
    bool GetParameterRoot(CParameterGroup** root) override;
    bool CheckCancelCondition() override { return cancelCondition; }
    bool CheckDiagnosisCondition() override { return true; }

protected:
    /// A call that did not fail takes effect.
    virtual void Happened(const QString&) {}

private:
    /// Writes the call into the log; false when it is to fail.
    bool Note(const QString& call);
    bool Passes(const QString& call) const { return !fails || !fails(call); }

    std::vector<ParameterDescription> m_parameters;
    QStringList m_log;
    std::unique_ptr<CParameterGroup> m_root;
};

/// What the rows of all pages show and what the pages ask for besides. Those in `own` go before the others of their
/// registers.
std::vector<ParameterDescription> WizardParameters(std::vector<ParameterDescription> own = {});

} // namespace krt550
