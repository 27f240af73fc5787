#include "drive/field_direction.h"

#include "drive/drive_settings.h"

#include <cmath>

namespace krt550 {

bool CFieldDirection::Step(double seconds, const FieldView& view, const DriveSettings& settings) {
    const int wanted = settings.fieldReverses && view.reverse ? -1 : 1;
    if (!view.on) {
        m_direction = wanted;
        m_holds = false;
        m_passing = 0;
        return false;
    }
    const bool turns = wanted != m_direction && (settings.reversesTurning || view.stands);
    if (turns && std::abs(view.current) <= settings.zeroCurrent) {
        m_direction = wanted;
        m_passing = 0;
    }
    const bool waits = turns && wanted != m_direction;
    const bool passes = m_direction * view.field < settings.reversedLevel * settings.ratedFieldCurrent;
    // A field that is built up from nothing is not on its way through zero.
    m_holds = waits || (passes && (m_holds || turns));
    m_passing = m_holds && !waits ? m_passing + seconds : 0;
    return m_passing > settings.reversalTime;
}

} // namespace krt550
