#pragma once

#include "drive/pi_controller.h"

namespace krt550 {

struct DriveSettings;

/// What the drive makes of its armature voltage. It knows nothing but its own parameters: the EMF is the measured
/// voltage less the drop on 43.10 and 43.09, and the speed follows from 99.02, 99.04, 99.11 and the flux curve. Where
/// one of them is wrong, the speed is wrong.
class CEmfMeasurement {
public:
    /// `voltage` [V] and `current` [A] of the armature, `flux` relative, with the field current's sign.
    void Step(double seconds, double voltage, double current, double flux, const DriveSettings& settings);
    /// Begins anew with a motor that stands.
    void Reset();

    double GetEmf() const { return m_emf; }     ///< [V]
    double GetSpeed() const { return m_speed; } ///< [rad/s]; 0 without field, which tells nothing

private:
    CLag m_voltage;
    CLag m_current;
    double m_former = 0; ///< current [A]
    CLag m_flux;         ///< relative
    double m_emf = 0;
    double m_speed = 0;
};

} // namespace krt550
