#pragma once

#include "drive/supervision.h"

#include <array>

namespace krt550 {

class CRegisterFile;

/// The winding as a thermometer in it would see it: an exponential towards 25 °C and 80 K for rated current, of the
/// motor's own, whatever the drive takes it for.
class CWinding {
public:
    /// `load` is the armature current of rated current.
    void Step(double seconds, double load);
    double GetTemperature() const { return m_temperature; } ///< [°C]

private:
    double m_temperature = 25;
};

/// The motor's temperature sensor (31.04): a PTC thermistor of 130 °C or a Pt100 at AI2 or AI3, through which the drive
/// sends 2.5 mA or 5 mA. It warns by 31.05 and trips by 31.06. A wire that is broken or shorted cannot be told from a
/// motor that is too hot, and trips as well.
class CMotorTemperature {
public:
    void Read(const CRegisterFile& registers);
    /// Analogue input of the sensor, 2 or 3; 0: none.
    int GetInput() const { return m_input; }
    /// What a sensor in a winding of this temperature [°C] gives at its input [V].
    double VoltsAt(double temperature) const;
    void Sample(const std::array<double, 4>& volts);
    Findings GetFindings() const;
    /// 1.23 [°C] and 5.02 [Ohm]; 0 without a sensor.
    void Show(CRegisterFile& registers) const;

private:
    bool m_platinum = false;
    int m_input = 0;
    double m_alarm = 0;       ///< [°C]
    double m_trip = 0;        ///< [°C]
    double m_resistance = 0;  ///< [Ohm]
    double m_temperature = 0; ///< [°C]
    bool m_broken = false;
};

} // namespace krt550
