#include "drive/motor_temperature.h"

#include "drive/fault_codes.h"
#include "drive/monotone_curve.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

using Points = std::vector<std::pair<double, double>>;

struct Sensor {
    CMonotoneCurve resistance;  ///< [Ohm] over [°C]
    CMonotoneCurve temperature; ///< its inverse
    double current;             ///< that the drive sends through it [A]
    double least, most;         ///< beyond these a wire is broken or shorted [Ohm]
};

Sensor MakeSensor(const Points& points, double current, double least, double most) {
    Points inverse;
    for (const auto& [temperature, resistance] : points)
        inverse.emplace_back(resistance, temperature);
    return {CMonotoneCurve(points), CMonotoneCurve(std::move(inverse)), current, least, most};
}

/// Platinum by IEC 60751, thermistor by DIN 44081.
const Sensor& SensorOf(bool platinum) {
    static const Sensor kPlatinum =
        MakeSensor({{-50, 80.31}, {0, 100}, {50, 119.4}, {100, 138.51}, {150, 157.33}, {210, 179.53}}, 0.005, 80, 180);
    static const Sensor kThermistor =
        MakeSensor({{-20, 60}, {25, 100}, {110, 250}, {125, 550}, {135, 1330}, {145, 4000}}, 0.0025, 20, 4000);
    return platinum ? kPlatinum : kThermistor;
}

} // namespace

void CWinding::Step(double seconds, double load) {
    constexpr double kAmbient = 25;
    constexpr double kRise = 80;
    constexpr double kTime = 240; // [s]
    const double end = kAmbient + kRise * load * load;
    m_temperature = end + (m_temperature - end) * std::exp(-seconds / kTime);
}

void CMotorTemperature::Read(const CRegisterFile& registers) {
    const quint16 sensor = registers.GetWord(reg::kTemperatureInput); // PTC at AI2, AI3, Pt100 at AI2, AI3
    m_input = sensor == 0 ? 0 : sensor % 2 == 1 ? 2 : 3;
    m_platinum = sensor > 2;
    m_alarm = registers.GetNumber(reg::kTemperatureAlarm, 120);
    m_trip = registers.GetNumber(reg::kTemperatureTrip, 130);
}

double CMotorTemperature::VoltsAt(double temperature) const {
    const Sensor& sensor = SensorOf(m_platinum);
    return m_input == 0 ? 0 : sensor.resistance(temperature) * sensor.current;
}

void CMotorTemperature::Sample(const std::array<double, 4>& volts) {
    m_resistance = m_temperature = 0;
    m_broken = false;
    if (m_input == 0)
        return;
    const Sensor& sensor = SensorOf(m_platinum);
    m_resistance = std::max(0.0, volts[static_cast<std::size_t>(m_input - 1)] / sensor.current);
    m_broken = m_resistance < sensor.least || m_resistance > sensor.most;
    m_temperature = sensor.temperature(std::clamp(m_resistance, sensor.least, sensor.most));
}

Findings CMotorTemperature::GetFindings() const {
    Findings found;
    if (m_input == 0)
        return found;
    if (m_broken || m_temperature >= m_trip)
        found.Add(kFaultOvertemperature, Reaction::Trip);
    if (m_broken || m_temperature >= m_alarm)
        found.Add(kFaultOvertemperature, Reaction::Alarm);
    return found;
}

void CMotorTemperature::Show(CRegisterFile& registers) const {
    registers.SetNumber(reg::kMeasuredTemperature, m_temperature);
    registers.SetNumber(reg::kSensorResistance, m_resistance);
}

} // namespace krt550
