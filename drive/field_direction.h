#pragma once

#include <QtGlobal>

namespace krt550 {

struct DriveSettings;

/// What the field's direction goes by.
struct FieldView {
    bool reverse = false; ///< the selector (45.06) asks for the reversed field
    bool on = false;      ///< the exciter is to give full or weakened field
    bool stands = false;  ///< the motor
    double field = 0;     ///< [A]
    double current = 0;   ///< of the armature [A]
};

/// The direction of the field in a drive that reverses it (44.01) with an exciter that can. The armature gets no
/// current from the wish for the other direction on until the field has come to 45.18 in it. A wish of a turning motor
/// waits for standstill where 45.09 says so.
class CFieldDirection {
public:
    /// Once in a slice. True when the field has not turned over within 45.12.
    bool Step(double seconds, const FieldView& view, const DriveSettings& settings);
    int Get() const { return m_direction; } ///< 1, or -1 for reversed
    /// The armature has to be without current.
    bool HoldsArmature() const { return m_holds; }

private:
    int m_direction = 1;
    bool m_holds = false;
    double m_passing = 0; ///< time since the exciter was told [s]
};

} // namespace krt550
