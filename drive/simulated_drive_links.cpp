// The drive on its links: the words that come in from a PLC and from another drive.
#include "drive/simulated_drive.h"

namespace krt550 {

bool CSimulatedDrive::TakeWord(quint16 reg, quint16 word) {
    // The same word comes a hundred times a second.
    const ParameterDescription* parameter = m_registers.FindDescription(reg);
    const bool same = parameter && !parameter->readOnly && m_registers.GetWord(reg) == word;
    return same || Write(reg, word);
}

bool CSimulatedDrive::SendFromPlc(int number, quint16 word) {
    Advance();
    m_plc.Send(number, word);
    ExchangeWithPlc();
    const Telegram& telegram = m_adapter.GetTelegram();
    return number > telegram.first && number <= telegram.first + telegram.toDrive;
}

std::optional<quint16> CSimulatedDrive::ReceivedByPlc(int number) {
    Advance();
    return m_adapter.IsInUse() ? m_plc.GetReceived(number) : std::nullopt;
}

void CSimulatedDrive::MountAdapter(AdapterType type) {
    m_adapter.SetMounted(type);
    m_adapter.Read(m_registers);
}

/// What the drive tells others must be of this moment.
void CSimulatedDrive::Exchange(qint64 milliseconds, qint64 now) {
    if (!m_neighbour && !m_adapter.IsInUse())
        return;
    ShowState();
    ExchangeWithPlc();
    if (m_neighbour)
        m_neighbour->Pass(milliseconds, now);
}

void CSimulatedDrive::ExchangeWithPlc() {
    if (m_commanders.IsBusLost())
        return;
    const auto write = [this](quint16 reg, quint16 word) { return TakeWord(reg, word); };
    if (m_plc.Exchange(m_adapter.GetTelegram(), m_registers, write))
        m_commanders.HearBus();
}

} // namespace krt550
