#pragma once

namespace krt550 {

class CDigitalInputs;
class CRegisterFile;

/// A speed reference that two keys move up and down, in the times of ramp 1, between 11.06 and the maximum speed.
class CMotorPotentiometer {
public:
    void Read(const CRegisterFile& registers);
    /// Moves only while the motor runs, so that nobody winds it up at standstill.
    void Step(double seconds, bool running, const CDigitalInputs& inputs);
    double GetSpeed() const { return m_speed; } ///< [rpm]

private:
    double m_speed = 0;
    double m_low = 0;
    double m_high = 0;
    double m_slopeUp = 0; ///< [rpm/s]
    double m_slopeDown = 0;
};

} // namespace krt550
