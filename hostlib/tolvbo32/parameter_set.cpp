#include "hostlib/tolvbo32/parameter_set.h"

#include "hostlib/tolvbo32/parameter_group.h"

#include <utility>

namespace krt550 {

CParameterSet::CParameterSet(CParameterGroup* parent, QString name, QString index)
    : m_parent(parent), m_name(std::move(name)), m_index(std::move(index)) {}

CParameterSet::~CParameterSet() = default;

quint16 CParameterSet::GetRegister() const {
    const QString digits = m_parent ? m_parent->GetIndex() + m_index : m_index;
    return digits.toUShort();
}

QString CParameterSet::GetLastError(int which) const {
    return which == 0 ? m_lastError : QString();
}

} // namespace krt550
