#pragma once

#include "drive/fault_record.h"

#include <optional>
#include <set>

namespace krt550 {

class CRegisterFile;

/// The drive's faults and alarms: which one it is tripped with, what the last record holds, what is only warned of.
class CFaultMemory {
public:
    /// Code of the fault that the drive is tripped with, 0 = none.
    quint16 GetActive() const { return m_active; }
    quint16 GetLast() const { return m_last; }
    int GetTripCount() const { return m_trips; }
    /// Null before the first fault.
    const std::optional<FaultFields>& GetFields() const { return m_fields; }

    /// A trip: its record holds what the registers show at this moment. `milliseconds` is the drive's age.
    void Trip(quint16 code, const CRegisterFile& registers, qint64 milliseconds);
    /// A cause (0: none) that is there until it is taken away keeps the fault from being acknowledged.
    void SetCause(quint16 code) { m_cause = code; }
    void Acknowledge() { m_active = m_cause ? m_active : quint16{0}; }

    /// The alarms that are there now, by the codes of the faults that they could have been.
    void SetAlarms(const std::set<quint16>& codes);
    bool HasAlarm() const { return !m_alarms.empty(); }
    /// 9.01, 9.06, 9.10 and 9.12.
    void Show(CRegisterFile& registers) const;

private:
    quint16 m_active = 0;
    quint16 m_last = 0;
    quint16 m_cause = 0;
    int m_trips = 0;
    std::optional<FaultFields> m_fields;
    std::set<quint16> m_alarms;
    quint16 m_lastAlarm = 0;
};

} // namespace krt550
