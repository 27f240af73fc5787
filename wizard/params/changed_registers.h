#pragma once

#include <QtGlobal>

namespace krt550 {

/// The module-wide set of registers whose rows the user has changed and not yet written.

/// Marks a register; does nothing while a cyclic update shows a value.
void MarkChanged(quint16 reg);
bool IsChanged(quint16 reg);
/// Whether any row is changed and not written.
bool AnyChanged();
void UnmarkChanged(quint16 reg);
void ClearChanged();

/// Marking does nothing during the scope's lifetime.
class UpdatingScope {
public:
    UpdatingScope();
    ~UpdatingScope();
    UpdatingScope(const UpdatingScope&) = delete;
    UpdatingScope& operator=(const UpdatingScope&) = delete;
    static bool IsActive();
};

} // namespace krt550
