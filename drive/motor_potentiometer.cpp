#include "drive/motor_potentiometer.h"

#include "drive/digital_inputs.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr double kLeastTime = 0.1; ///< a key must be able to stop between two speeds [s]

} // namespace

void CMotorPotentiometer::Read(const CRegisterFile& registers) {
    const double base = registers.GetNumber(reg::kBaseSpeed, 1500);
    m_high = registers.GetNumber(reg::kSpeedMaximum, base);
    m_low = std::min(m_high, registers.GetNumber(reg::kPotMinimum, 0));
    m_slopeUp = base / std::max(kLeastTime, registers.GetNumber(reg::kRampUp, 20));
    m_slopeDown = base / std::max(kLeastTime, registers.GetNumber(reg::kRampDown, 20));
}

void CMotorPotentiometer::Step(double seconds, bool running, const CDigitalInputs& inputs) {
    const bool up = inputs.IsClosed(InputFunction::PotUp);
    const bool down = inputs.IsClosed(InputFunction::PotDown);
    if (inputs.IsClosed(InputFunction::PotMinimum))
        m_speed = m_low;
    else if (running && up != down)
        m_speed += seconds * (up ? m_slopeUp : -m_slopeDown);
    m_speed = std::clamp(m_speed, m_low, m_high);
}

} // namespace krt550
