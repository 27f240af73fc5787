#include "drive/motor.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kCoastSlope = 150; ///< loss of speed by friction [rpm/s]

} // namespace

void CMotor::Step(double seconds, std::optional<double> drivenSpeed) {
    if (drivenSpeed)
        m_speed = *drivenSpeed;
    else
        m_speed = std::copysign(std::max(0.0, std::abs(m_speed) - kCoastSlope * seconds), m_speed);
}

} // namespace krt550
