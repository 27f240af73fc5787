#include "drive/fault_memory.h"

#include "drive/fault_capture.h"
#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"

namespace krt550 {
namespace {

/// Fault and alarm words have a bit for each code from 101 on, 16 to a word.
quint16 WordOf(const std::set<quint16>& codes, quint16 first) {
    unsigned word = 0;
    for (const quint16 code : codes)
        if (code >= first && code < first + 16)
            word |= 1U << (code - first);
    return static_cast<quint16>(word);
}

} // namespace

void CFaultMemory::Trip(quint16 code, const CRegisterFile& registers, qint64 milliseconds) {
    m_active = m_last = code;
    ++m_trips;
    m_fields = CaptureFault(registers, code, milliseconds);
}

void CFaultMemory::SetAlarms(const std::set<quint16>& codes) {
    for (const quint16 code : codes)
        if (!m_alarms.contains(code))
            m_lastAlarm = static_cast<quint16>(code + kAlarmOffset);
    m_alarms = codes;
}

void CFaultMemory::Show(CRegisterFile& registers) const {
    const std::set<quint16> active = m_active ? std::set<quint16>{m_active} : std::set<quint16>{};
    for (quint16 i = 0; i < 2; ++i) {
        const auto first = static_cast<quint16>(kFirstFault + 16 * i);
        registers.SetWord(static_cast<quint16>(reg::kFaultWord + i), WordOf(active, first));
        registers.SetWord(static_cast<quint16>(reg::kAlarmWord + i), WordOf(m_alarms, first));
    }
    registers.SetWord(reg::kLastFaultCode, m_last);
    registers.SetWord(reg::kLastAlarmCode, m_lastAlarm);
}

} // namespace krt550
