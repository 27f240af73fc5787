#pragma once

namespace krt550 {

/// Mean dead time of a six-pulse converter at 50 Hz, half the time between two firings, taken as a first-order lag [s].
inline constexpr double kConverterLag = 1.0 / 600;

/// One current pulse of a six-pulse bridge in the discontinuous region.
struct DiscontinuousPulse {
    double length = 0;  ///< conduction angle, 0 to pi/3 [rad]
    double current = 0; ///< mean current as Id*w*L/Upeak
};

/// Mean value to which a bridge's voltage settles at a current, and how it gives way when the current grows.
struct ConverterVoltage {
    double voltage = 0;     ///< [V]
    double slope = 0;       ///< dU/dI, 0 when the current flows all the time [Ohm]
    bool continuous = true; ///< the current has no gaps
};

/// Pulse at a firing angle against a back EMF e = E/Upeak, from the line voltage's sine: with theta0 = 60 deg + alpha,
/// i(theta)*w*L/Upeak = cos(theta0) - cos(theta) - e*(theta - theta0) until its next root; armature resistance left
/// out. 60 deg and more: the current has become continuous and the mean value is that of its boundary.
DiscontinuousPulse PulseOf(double alpha, double e);

/// A six-pulse thyristor bridge on a three-phase supply behind commutation chokes, as a mean-value model. The firing
/// angle is told by its cosine. While the current flows without gaps its commutation from valve to valve costs
/// 3/pi*w*Lk*Id; where it has gaps every pulse begins at 0 and the drop fades away with the square of the current.
class CSixPulseConverter {
public:
    /// `lineVoltage` [V] between two lines, effective; `frequency` [Hz]; `lineInductance` Lk [H] a phase. A dead
    /// supply (0 V) gives no voltage.
    void SetSupply(double lineVoltage, double frequency, double lineInductance = 0);

    /// With a phase or a branch lost two pulses a period are left: two thirds of the voltage, and gaps in the current.
    void SetTwoPulse(bool twoPulse) { m_twoPulse = twoPulse; }

    double GetPeak() const { return m_peak; }                  ///< of the line voltage [V]
    double GetIdealVoltage() const;                            ///< Udi0 = 3/pi*Upeak [V]
    double GetAngularFrequency() const { return m_frequency; } ///< w [rad/s]
    /// Mean current [A] below which the current has gaps: Udi0*sin(alpha)/(w*L)*(1 - pi/6*cot(pi/6)).
    double DiscontinuousLimit(double cosine, double inductance) const;
    /// Mean voltage at a firing angle and a current (>= 0) [A] in a circuit with `inductance` [H].
    ConverterVoltage MeanVoltage(double cosine, double current, double inductance) const;
    /// Cosine of the firing angle that gives `voltage` at that current, searched from `start` (the last answer).
    double CosineFor(double voltage, double current, double inductance, double start) const;

private:
    double CommutationDrop(double current, double limit) const;
    double LimitOf(double sine, double inductance) const;

    double m_peak = 0;
    double m_frequency = 0;
    double m_commutation = 0; ///< 3/pi*w*Lk [Ohm]
    bool m_twoPulse = false;
};

} // namespace krt550
