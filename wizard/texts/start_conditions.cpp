#include "wizard/texts/wizard_tables.h"

namespace krt550 {
namespace {

quint32 ConditionKey(quint16 step, quint16 reg) {
    return (quint32{step} << 16) | reg;
}

} // namespace

void CStartConditions::Allow(quint16 step, quint16 reg, quint16 value) {
    const auto [number, isNew] = m_index.Add(ConditionKey(step, reg));
    if (isNew) {
        m_conditions.push_back({reg, {}});
        m_registers[step].append(reg);
    }
    m_conditions[number].allowed.push_back(value);
}

const StartCondition* CStartConditions::Find(quint16 step, quint16 reg) const {
    const quint32 number = m_index.Find(ConditionKey(step, reg));
    return number == CKeyIndex::kNone ? nullptr : &m_conditions[number];
}

QList<quint16> CStartConditions::RegistersOf(quint16 step) const {
    return m_registers.value(step);
}

} // namespace krt550
