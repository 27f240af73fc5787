#pragma once

#include "drive/drive_settings.h"
#include "drive/motor_control.h"

#include <QtGlobal>

#include <random>
#include <utility>
#include <vector>

namespace krt550 {

/// What the drive's converters measure, noise included.
struct Measurement {
    double armatureVoltage = 0; ///< [V]
    double armatureCurrent = 0; ///< [A]
    double fieldVoltage = 0;    ///< [V]
    double fieldCurrent = 0;    ///< [A]
    double emf = 0;             ///< [V]
    double speed = 0;           ///< of the source in use [rad/s]
    double emfSpeed = 0;        ///< [rad/s]
    double encoderSpeed = 0;    ///< [rad/s]
    double tachoSpeed = 0;      ///< [rad/s]
};

/// What a service run may do and see: it commands the converters, measures with noise and leaves results. It knows
/// the motor's name plate and the drive's settings, never the motor's constants.
class CTestBench {
public:
    CTestBench(const DriveSettings& settings, double ideal, double peak, double frequency, double speedLimit);

    const DriveSettings& GetSettings() const { return m_settings; }
    double GetIdealVoltage() const { return m_ideal; }    ///< Udi0 [V]
    double GetPeak() const { return m_peak; }             ///< of the line voltage [V]
    double GetFrequency() const { return m_frequency; }   ///< w of the mains [rad/s]
    double GetSpeedLimit() const { return m_speedLimit; } ///< [rad/s]

    MotorCommand command;   ///< from the next step on
    bool mustStand = false; ///< the run fails when the motor turns
    int fieldDirection = 0; ///< that somebody has commanded: 1, -1, or 0 for none
    /// Ramps the speed command; 0 rad/s2: it stays as it is.
    void RampSpeed(double target, double slope);

    const Measurement& Now() const { return m_now; }
    bool IsCurrentContinuous() const { return m_continuous; }
    bool IsPulseOver() const { return m_pulseOver; }
    void StartMean();
    Measurement Mean() const;                 ///< since StartMean
    double GetTime() const { return m_time; } ///< since the run began [s]

    /// From now on the progress rises to `to` [%], most of the way in `seconds`.
    void Phase(double to, double seconds);
    int GetProgress() const;

    /// The results so far go into their registers, while the run goes on; from then on stopping the motor is its
    /// regular end.
    void Publish() { m_publishes = true; }
    bool TakePublish() {
        m_published = m_published || m_publishes;
        return std::exchange(m_publishes, false);
    }
    bool HasPublished() const { return m_published; }
    /// Speed [rad/s] that somebody has read off a hand-held tacho since the last call, 0: nobody.
    double TakeHandTacho() { return std::exchange(m_handTacho, 0); }
    void SetHandTacho(double speed) { m_handTacho = speed; }

    void SetResult(quint16 reg, double shown) { m_results.emplace_back(reg, shown); }
    const std::vector<std::pair<quint16, double>>& GetResults() const { return m_results; }

    /// Takes in a step. False when the motor turned that must stand.
    bool Observe(double seconds, const MotorState& state, bool pulseOver);

private:
    double Noisy(double value, double range);

    DriveSettings m_settings;
    double m_ideal;
    double m_peak;
    double m_frequency;
    double m_speedLimit;
    double m_slope = 0;
    double m_target = 0;
    Measurement m_now;
    Measurement m_sum;
    int m_count = 0;
    bool m_continuous = false;
    bool m_pulseOver = false;
    double m_time = 0;
    double m_turning = 0; ///< for how long [s]
    bool m_publishes = false;
    bool m_published = false;
    double m_handTacho = 0; ///< [rad/s]
    double m_from = 0;
    double m_to = 0;
    double m_phaseStart = 0;
    double m_phaseTime = 1;
    std::vector<std::pair<quint16, double>> m_results;
    std::minstd_rand m_random{550};
};

} // namespace krt550
