#include "drive/speed_ramp.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace krt550 {
namespace {

/// Moves `value` towards `target` for `seconds` at `slope`; gives the seconds left over.
double MoveTowards(double& value, double target, double seconds, double slope) {
    const double distance = std::abs(target - value);
    const double needed = distance / slope; // 0 with an infinite slope
    if (needed <= seconds) {
        value = target;
        return seconds - needed;
    }
    value += std::copysign(slope * seconds, target - value);
    return 0;
}

} // namespace

double RampSlope(double speed, double seconds) {
    return seconds > 0 ? std::abs(speed) / seconds : std::numeric_limits<double>::infinity();
}

void CSpeedRamp::Step(double seconds, double target, const RampSlopes& slopes) {
    const bool reverses = m_output * target < 0;
    const double slowTo = reverses ? 0 : std::copysign(std::min(std::abs(target), std::abs(m_output)), m_output);
    const double left = MoveTowards(m_output, slowTo, seconds, slopes.down);
    if (m_output == slowTo)
        MoveTowards(m_output, target, left, slopes.up);
}

} // namespace krt550
