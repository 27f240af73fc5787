#pragma once

#include "hostlib/export.h"

#include <QString>

namespace krt550 {

class CParameterGroup;

/// A node of the parameter tree.
class HOSTLIB_EXPORT CParameterSet {
public:
    CParameterSet(CParameterGroup* parent, QString name, QString index);
    virtual ~CParameterSet();
    CParameterSet(const CParameterSet&) = delete;
    CParameterSet& operator=(const CParameterSet&) = delete;

    const QString& GetName() const { return m_name; }
    /// Group number, or the two-digit index of a parameter within its group.
    const QString& GetIndex() const { return m_index; }
    CParameterGroup* GetParent() const { return m_parent; }
    /// Digits of the register text as a number: 9906 for 99.06; 0 when they are no 16-bit number.
    quint16 GetRegister() const;
    /// Text of the last failed operation, possibly empty; `which` is always 0.
    QString GetLastError(int which) const;

protected:
    void SetName(const QString& name) { m_name = name; }
    void SetLastError(const QString& text) { m_lastError = text; }

private:
    CParameterGroup* m_parent;
    QString m_name;
    QString m_index;
    QString m_lastError;
};

} // namespace krt550
