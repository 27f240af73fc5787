#include "drive/simulated_host_drive.h"

#include "drive/applied_faults.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_tree.h"
#include "hostlib/tolvcom32/communication_facade.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace krt550 {
namespace {

constexpr quint16 Code(CommunicationError error) {
    return static_cast<quint16>(error);
}

constexpr quint32 kLastFaultRequest = 1;

/// The record as the drive sends it under the fault modes.
QByteArray DisturbedRecord(QByteArray record, const CFaultModes& modes) {
    if (modes.Has(FaultModeKind::ShortRecord)) {
        record.truncate(kShortFaultRecordSize);
        record[0] = static_cast<char>(RecordState::Short);
    }
    const quint32 bytes = modes.Find(FaultModeKind::TruncatedRecord).value_or(kFaultRecordSize);
    if (bytes < static_cast<quint32>(record.size())) {
        record[0] = static_cast<char>(RecordState::FieldsMissing);
        record.truncate(static_cast<qsizetype>(bytes));
    }
    return record;
}

} // namespace

CSimulatedHostDrive::CSimulatedHostDrive(std::vector<ParameterDescription> descriptions, QString wizardFile,
                                         const MotorSet* motor)
    : m_drive(std::move(descriptions), motor), m_info(std::move(wizardFile)) {
    m_drive.GetRegisters().OnRename([this](const ParameterDescription& parameter) { RenameInTrees(parameter); });
    FetchStatus();
}

CSimulatedHostDrive::~CSimulatedHostDrive() = default;

quint16 CSimulatedHostDrive::ReadFaultBuffer(quint32& header, const FaultBufferRequest* request, quint32* byteCount,
                                             QByteArray& record) {
    if (!request || !byteCount || request->code != kLastFaultRequest) {
        m_link.SetLastError(CCommunicationFacade::GetErrorMessage(Code(CommunicationError::Refused), false));
        return Code(CommunicationError::Refused);
    }
    QByteArray answer;
    const auto reply = m_link.Exchange([&] {
        answer = DisturbedRecord(m_drive.ReadFaultRecord(), m_modes);
        return true;
    });
    if (reply != CSimulatedLink::Reply::Done)
        return Code(CommunicationError::Timeout);
    if (const auto error = m_modes.Find(FaultModeKind::RecordError)) {
        m_link.SetLastError(CCommunicationFacade::GetErrorMessage(static_cast<quint16>(*error), false));
        return static_cast<quint16>(*error);
    }
    header = static_cast<quint32>(m_drive.GetFaults().GetTripCount());
    *byteCount = static_cast<quint32>(answer.size());
    record = answer;
    return Code(CommunicationError::None);
}

bool CSimulatedHostDrive::SetReference(const QString& reference) {
    bool isNumber = false;
    const double rpm =
        QLocale::c().toDouble(reference.trimmed().replace(QLatin1Char(','), QLatin1Char('.')), &isNumber);
    if (!isNumber || !std::isfinite(rpm)) {
        m_link.SetLastError(QStringLiteral("\"%1\" is not a speed reference.").arg(reference));
        return false;
    }
    return Command([&] { return m_drive.SetSpeedReference(rpm); });
}

bool CSimulatedHostDrive::RefreshState() {
    return Command([this] {
        m_drive.Poll();
        return true;
    });
}

QString CSimulatedHostDrive::GetReference() {
    RefreshState();
    const bool whole = std::abs(m_reference - std::round(m_reference)) < 0.05;
    return dtoa(m_reference, whole ? 0 : 1);
}

bool CSimulatedHostDrive::StartMotor() {
    return Command([this] { return m_drive.StartMotor(); });
}

bool CSimulatedHostDrive::StopMotor() {
    return Command([this] { return m_drive.StopMotor(); });
}

bool CSimulatedHostDrive::ResetFault() {
    return Command([this] { return m_drive.ResetFault(); });
}

bool CSimulatedHostDrive::OpenContactor() {
    return Command([this] { return m_drive.OpenContactor(); });
}

bool CSimulatedHostDrive::CloseContactor() {
    return Command([this] { return m_drive.CloseContactor(); });
}

bool CSimulatedHostDrive::TakeLocalControl() {
    return Command([this] { return m_drive.TakeLocalControl(); });
}

bool CSimulatedHostDrive::ReleaseLocalControl() {
    return Command([this] { return m_drive.ReleaseLocalControl(); });
}

/// Has the drive carry out a command; its reply carries its state too.
bool CSimulatedHostDrive::Command(const std::function<bool()>& command) {
    const auto reply = m_link.Exchange(command);
    if (reply == CSimulatedLink::Reply::Refused)
        m_link.SetLastError(m_drive.GetLastError());
    if (reply != CSimulatedLink::Reply::None)
        FetchStatus();
    return reply == CSimulatedLink::Reply::Done;
}

void CSimulatedHostDrive::FetchStatus() {
    const struct {
        quint32 bit;
        bool set;
    } bits[] = {
        {kStatusStopped, m_drive.IsStopped()},
        {host_status::kContactorClosed, m_drive.IsContactorClosed()},
        {host_status::kRunning, m_drive.GetState() == DriveState::Operation},
        {host_status::kLocalControl, m_drive.GetControlPlace() == ControlPlace::Local},
        {host_status::kFault, m_drive.GetFaults().GetActive() != 0},
    };
    m_status = 0;
    for (const auto& [bit, set] : bits)
        m_status |= set ? bit : 0;
    m_reference = m_drive.GetSpeedReference();
}

void CSimulatedHostDrive::ConnectPartner(const MotorSet& motor) {
    m_partner = std::make_unique<CSimulatedDrive>(m_drive.GetRegisters().GetDescriptions(), &motor);
    SetUpFollower(*m_partner);
    m_driveLink = std::make_unique<CDriveLink>(m_drive, *m_partner);
}

void CSimulatedHostDrive::SetTreeLink(CParameterLink* link) {
    m_treeLink = link;
    RetireTree();
}

bool CSimulatedHostDrive::GetParameterRoot(CParameterGroup** root) {
    if (!root)
        return false;
    if (!m_tree) {
        std::vector<ParameterDescription> present = m_drive.GetRegisters().GetDescriptions();
        std::erase_if(present, [this](const ParameterDescription& parameter) {
            return m_modes.Has(FaultModeKind::MissingRegister, parameter.reg);
        });
        m_tree = BuildParameterTree(present, m_treeLink ? m_treeLink : &m_link);
    }
    *root = m_tree.get();
    return true;
}

bool CSimulatedHostDrive::SetFaultMode(const QString& text, QString& error) {
    const auto mode = ParseFaultMode(text, error);
    if (mode)
        SetFaultMode(*mode);
    return mode.has_value();
}

void CSimulatedHostDrive::SetFaultMode(const FaultMode& mode) {
    m_modes.Add(mode);
    if (mode.kind == FaultModeKind::MissingRegister)
        RetireTree();
    ApplyFaultModes(m_modes, m_drive);
    BeginFaultMode(mode, m_drive);
}

void CSimulatedHostDrive::ClearFaultMode(const FaultMode& mode) {
    m_modes.Remove(mode);
    if (mode.kind == FaultModeKind::MissingRegister)
        RetireTree();
    ApplyFaultModes(m_modes, m_drive);
}

void CSimulatedHostDrive::ClearFaultModes() {
    const std::vector<FaultMode> modes = m_modes.GetModes();
    for (const FaultMode& mode : modes)
        ClearFaultMode(mode);
}

/// Whoever holds a parameter sees its new name.
void CSimulatedHostDrive::RenameInTrees(const ParameterDescription& parameter) {
    const auto rename = [&parameter](const CParameterGroup* tree) {
        CParameter* found = tree ? tree->FindChildByRegister(QString::number(parameter.reg)) : nullptr;
        if (found)
            found->Rename(parameter.name);
    };
    rename(m_tree.get());
    for (const auto& tree : m_retiredTrees)
        rename(tree.get());
}

/// Somebody may still hold parameters of the tree, so it is kept; the next one who asks gets a new tree.
void CSimulatedHostDrive::RetireTree() {
    if (m_tree)
        m_retiredTrees.push_back(std::move(m_tree));
}

} // namespace krt550
