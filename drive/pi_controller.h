#pragma once

#include <algorithm>

namespace krt550 {

/// A first-order lag: dy/dt = (x - y)/T.
class CLag {
public:
    double GetOutput() const { return m_output; }
    void Preset(double output) { m_output = output; }
    /// `time` T [s]; 0 or less: no lag.
    double Step(double input, double seconds, double time) {
        m_output += (input - m_output) * (time > seconds ? seconds / time : 1);
        return m_output;
    }

private:
    double m_output = 0;
};

/// Setting of a PI controller: gain*(1 + 1/(time*s)).
struct PiSetting {
    double gain = 0;
    double time = 0; ///< [s]; 0: no integral part
};

/// A PI controller whose integral part stops where the output meets a limit.
class CPiController {
public:
    /// Puts the integral part where the output shall go on from.
    void Preset(double integral) { m_integral = integral; }
    /// `forward` is added to the output ahead of the limits, which must not cross.
    double Step(double error, double seconds, const PiSetting& setting, double low, double high, double forward = 0) {
        const double wanted = forward + setting.gain * error + m_integral;
        const double output = std::clamp(wanted, low, high);
        const bool deeper = (wanted > high && error > 0) || (wanted < low && error < 0);
        if (setting.time <= 0)
            m_integral = 0;
        else if (!deeper)
            m_integral += setting.gain * error * seconds / setting.time;
        return output;
    }

private:
    double m_integral = 0;
};

} // namespace krt550
