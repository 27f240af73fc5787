#pragma once

namespace krt550 {

/// Which ramp times count.
enum class RampSet { First, Second, Jog };

/// Slopes of a speed ramp [rpm/s]; infinite: at once.
struct RampSlopes {
    double up = 0;   ///< away from standstill
    double down = 0; ///< towards standstill
};

/// Slope of a ramp that takes `seconds` (0: at once) for `speed` [rpm].
double RampSlope(double speed, double seconds);

/// Moves a speed reference to its target at limited slopes.
class CSpeedRamp {
public:
    double GetOutput() const { return m_output; }
    /// Puts the output where it shall go on from [rpm].
    void Preset(double speed) { m_output = speed; }
    /// Goes `seconds` (>= 0) towards `target` [rpm]. A reversal slows down to 0 first, then speeds up.
    void Step(double seconds, double target, const RampSlopes& slopes);

private:
    double m_output = 0;
};

} // namespace krt550
