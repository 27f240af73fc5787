#pragma once

#include <QString>

namespace krt550 {

class CParameter;
class CParameterGroup;
class CWindow;

/// The parameter that a pointer names by its register, shown in two statics: value and unit, nothing for pointer 0,
/// "N/A" twice for one that the drive lacks or does not let read.
class CPointedParameter {
public:
    /// `window` outlives the object.
    CPointedParameter(CWindow& window, int valueId, int unitId);

    /// Finds what the pointer names below `root` (not null), reads and shows it. False when reading failed; `failure`
    /// is shown then.
    bool Resolve(CParameterGroup* root, quint16 pointer, const QString& failure);
    /// Points to nothing.
    void Clear();
    /// Reads and shows it again; false when that failed (shown).
    bool Refresh();
    quint16 GetPointer() const { return m_pointer; }

private:
    void Show(bool read);

    CWindow& m_window;
    int m_valueId;
    int m_unitId;
    quint16 m_pointer = 0;
    CParameter* m_parameter = nullptr;
};

} // namespace krt550
