#include "hostlib/tolvbo32/parameter_group.h"

#include "hostlib/tolvbo32/parameter.h"

#include <utility>

namespace krt550 {

CParameterGroup::CParameterGroup(CParameterGroup* parent, QString name, QString index, quint16, quint16, bool)
    : CParameterSet(parent, std::move(name), std::move(index)) {}

CParameterGroup::~CParameterGroup() = default;

void CParameterGroup::Add(std::unique_ptr<CParameterSet> child) {
    Q_ASSERT(child && child->GetParent() == this);
    if (auto* parameter = dynamic_cast<CParameter*>(child.get())) {
        Index(GetIndex() + parameter->GetIndex(), parameter);
    } else if (auto* group = dynamic_cast<CParameterGroup*>(child.get())) {
        group->m_attached = true;
        for (auto it = group->m_byRegister.cbegin(); it != group->m_byRegister.cend(); ++it)
            Index(it.key(), it.value());
    }
    m_children.push_back(std::move(child));
}

CParameter* CParameterGroup::FindChildByRegister(const QString& registerText) const {
    return m_byRegister.value(registerText, nullptr);
}

void CParameterGroup::Index(const QString& registerText, CParameter* parameter) {
    for (CParameterGroup* group = this; group; group = group->m_attached ? group->GetParent() : nullptr)
        group->m_byRegister.insert(registerText, parameter);
}

} // namespace krt550
