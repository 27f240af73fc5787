#pragma once

#include <optional>

namespace krt550 {

/// The motor on the drive's shaft, as the drive sees it: an ideal one that turns as it is driven and coasts down
/// evenly when it is not. The electrical and mechanical motor model takes this class's place behind the same two calls.
class CMotor {
public:
    /// Lets `seconds` (>= 0) pass: driven to a speed [rpm], or left to itself.
    void Step(double seconds, std::optional<double> drivenSpeed);
    double GetSpeed() const { return m_speed; } ///< [rpm]

private:
    double m_speed = 0;
};

} // namespace krt550
