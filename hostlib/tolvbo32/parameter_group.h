#pragma once

#include "hostlib/tolvbo32/parameter_set.h"

#include <QHash>

#include <memory>
#include <vector>

namespace krt550 {

class CParameter;

/// A node with children. The root group of a drive holds its groups, these hold the parameters.
class HOSTLIB_EXPORT CParameterGroup : public CParameterSet {
public:
    /// The two words and the flag belong to the library's construction call; nothing here depends on them.
    CParameterGroup(CParameterGroup* parent, QString name, QString index, quint16 firstWord = 0, quint16 secondWord = 0,
                    bool flag = false);
    ~CParameterGroup() override;

    /// Takes a child whose parent is this group, and makes its parameters known here and in every group above.
    void Add(std::unique_ptr<CParameterSet> child);

    /// The parameter with this register text ("9906") below this group, or null. Constant time.
    CParameter* FindChildByRegister(const QString& registerText) const;

    const std::vector<std::unique_ptr<CParameterSet>>& GetChildren() const { return m_children; }

private:
    void Index(const QString& registerText, CParameter* parameter);

    std::vector<std::unique_ptr<CParameterSet>> m_children;
    QHash<QString, CParameter*> m_byRegister;
    bool m_attached = false; ///< added to its parent, which therefore knows the parameters of this group
};

} // namespace krt550
