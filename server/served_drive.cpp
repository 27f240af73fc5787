#include "server/served_drive.h"

#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>

namespace krt550 {
namespace {

static_assert(wire_status::kContactorClosed == host_status::kContactorClosed &&
              wire_status::kRunning == host_status::kRunning &&
              wire_status::kLocalControl == host_status::kLocalControl && wire_status::kFault == host_status::kFault &&
              wire_status::kStopped == kStatusStopped);
static_assert(kFaultRecordSize <= wire::kFaultMostBytes);

} // namespace

CServedDrive::CServedDrive(CSimulatedHostDrive& drive, CServedClock& time) : m_host(drive), m_time(time) {
    m_host.LeaveRepliesToLine();
    m_host.GetDrive().SetToolSpeaks(false);
}

bool CServedDrive::IsHeldBy(const Master& master) const {
    return m_holder == &master && m_host.GetDrive().GetControlPlace() == ControlPlace::Local;
}

bool CServedDrive::IsHeldByOther(const Master& master) const {
    return m_holder != &master && m_host.GetDrive().GetControlPlace() == ControlPlace::Local;
}

void CServedDrive::Advance() {
    m_time.Pass([this] { m_host.GetDrive().Advance(); });
}

void CServedDrive::Hear(const Master& master) {
    Advance();
    CSimulatedDrive& drive = m_host.GetDrive();
    drive.SetToolSpeaks(IsHeldBy(master));
    drive.Poll();
}

void CServedDrive::Forget(const Master& master) {
    if (m_holder == &master)
        m_holder = nullptr;
}

void CServedDrive::SetBusy(qint64 milliseconds) {
    m_busyUntil = CClock::Current().Now() + milliseconds;
}

WireException CServedDrive::Refuse(Master& master, WireException exception, const QString& reason) {
    master.reason = reason;
    return exception;
}

/// `mayTakeOver`: local control whose connection is gone is in nobody's way.
WireException CServedDrive::RefuseWhenBusy(Master& master, bool mayTakeOver) {
    if (CClock::Current().Now() < m_busyUntil)
        return Refuse(master, WireException::Busy, QStringLiteral("The drive is busy with another request."));
    if (IsHeldByOther(master) && (m_holder || !mayTakeOver))
        return Refuse(master, WireException::Busy,
                      m_holder ? QStringLiteral("Another connection holds local control of the drive.")
                               : QStringLiteral("A connection that is gone holds local control of the drive."));
    return WireException::None;
}

bool CServedDrive::HasRegister(quint16 reg) {
    return m_host.GetDrive().GetRegisters().Has(reg) &&
           !m_host.GetFaultModes().Has(FaultModeKind::MissingRegister, reg);
}

WireException CServedDrive::Read(Master& master, quint16 first, std::span<quint16> words) {
    if (first < wire::kCommand) {
        for (quint16 reg = first; quint16 & word : words)
            if (const auto exception = ReadParameter(master, reg++, word); exception != WireException::None)
                return exception;
        return WireException::None;
    }
    const struct {
        quint16 first;
        Words (CServedDrive::*block)(const Master&);
        std::size_t size;
    } blocks[] = {
        {wire::kState, &CServedDrive::StateBlock, wire::kStateSize},
        {wire::kFaultRecord, &CServedDrive::FaultBlock, wire::kFaultRecordSize},
        {wire::kIdentity, &CServedDrive::IdentityBlock, wire::kIdentitySize},
        {wire::kUnitTexts, &CServedDrive::UnitTextBlock, wire::kUnitTextSize * wire::kMostUnitTexts},
    };
    for (const auto& [start, block, size] : blocks) {
        const std::size_t offset = first - start;
        if (first < start || offset + words.size() > size)
            continue;
        const Words all = (this->*block)(master);
        std::copy_n(all.begin() + static_cast<std::ptrdiff_t>(offset), words.size(), words.begin());
        return WireException::None;
    }
    return Refuse(master, WireException::UnknownRegister,
                  QStringLiteral("There is nothing to be read in the registers from %1 to %2.")
                      .arg(first)
                      .arg(first + words.size() - 1));
}

WireException CServedDrive::ReadParameter(Master& master, quint16 reg, quint16& word) {
    if (m_host.GetLink().ReadWord(reg, word))
        return WireException::None;
    return Refuse(master, HasRegister(reg) ? WireException::Refused : WireException::UnknownRegister,
                  m_host.GetLastErrorText());
}

WireException CServedDrive::Write(Master& master, quint16 first, std::span<const quint16> words) {
    if (first == wire::kCommand && words.size() == 1)
        return WriteCommand(master, words[0], std::nullopt);
    if (first == wire::kCommand && words.size() == wire::kCommandSize)
        return WriteCommand(master, words[0], static_cast<qint32>(Get32(words, 1)));
    if (first == wire::kCommandReference && words.size() == 2)
        return WriteCommand(master, CommandWord(WireCommand::SetReference), static_cast<qint32>(Get32(words, 0)));
    if (first < wire::kCommand)
        return WriteParameters(master, first, words);
    const RegisterField* field = FindField(first);
    if (!field)
        return Refuse(master, WireException::UnknownRegister, QStringLiteral("There is no register %1.").arg(first));
    if (field->access == FieldAccess::Read)
        return Refuse(master, WireException::Refused, QStringLiteral("Register %1 is read-only.").arg(first));
    return Refuse(
        master, WireException::OutOfLimits,
        QStringLiteral("%1 registers from %2 are no command: see the register map.").arg(words.size()).arg(first));
}

WireException CServedDrive::WriteParameters(Master& master, quint16 first, std::span<const quint16> words) {
    if (const auto busy = RefuseWhenBusy(master); busy != WireException::None)
        return busy;
    for (quint16 reg = first; const quint16 word : words)
        if (const auto exception = WriteParameter(master, reg++, word); exception != WireException::None)
            return exception;
    return WireException::None;
}

WireException CServedDrive::WriteParameter(Master& master, quint16 reg, quint16 word) {
    if (!HasRegister(reg))
        return Refuse(master, WireException::UnknownRegister, UnknownRegisterText(reg));
    const ParameterDescription& parameter = *m_host.GetDrive().GetRegisters().FindDescription(reg);
    if (QString error; !parameter.readOnly && !AcceptsWord(parameter, word, error))
        return Refuse(master, WireException::OutOfLimits, error);
    if (m_host.GetLink().WriteWord(reg, word))
        return WireException::None;
    return Refuse(master, WireException::Refused, m_host.GetLastErrorText());
}

Words CServedDrive::StateBlock(const Master& master) {
    m_host.RefreshState();
    WireState state;
    const CSimulatedDrive& drive = m_host.GetDrive();
    state.status = m_host.GetStatusWord();
    if (drive.GetControlPlace() != ControlPlace::Remote)
        state.place = IsHeldBy(master) ? WireControlPlace::Local : WireControlPlace::Other;
    if (state.place != WireControlPlace::Local)
        state.status &= ~wire_status::kLocalControl;
    state.reference = drive.GetSpeedReference();
    state.activeFault = drive.GetFaults().GetActive();
    state.commandCount = m_commandCount;
    state.lastCommand = master.lastCommand;
    state.lastResult = master.lastResult;
    state.reason = master.reason;
    return EncodeState(state);
}

Words CServedDrive::FaultBlock(const Master&) {
    WireFaultRecord block;
    const FaultBufferRequest request;
    quint32 bytes = wire::kFaultMostBytes;
    block.error = m_host.ReadFaultBuffer(block.header, &request, &bytes, block.record);
    return EncodeFaultBlock(block);
}

Words CServedDrive::IdentityBlock(const Master&) {
    quint16 count = 0;
    for (QString text; m_host.GetDriveTexts()->GetTextForParameterUnit(0, 0, count, text);)
        ++count;
    return {wire::kSignatureValue, wire::kMapVersionValue, count};
}

Words CServedDrive::UnitTextBlock(const Master&) {
    Words words(wire::kUnitTextSize * wire::kMostUnitTexts);
    QString text;
    for (int code = 0; m_host.GetDriveTexts()->GetTextForParameterUnit(0, 0, code, text); ++code)
        PutText(words, static_cast<std::size_t>(code) * wire::kUnitTextSize, text, wire::kUnitTextBytes);
    return words;
}

} // namespace krt550
