#pragma once

#include "drive/supervision.h"
#include "drive/trip_levels.h"

namespace krt550 {

struct DriveSettings;
struct MotorState;

/// What the supervision has to know beside the motor's state.
struct Surroundings {
    double mains = 0;          ///< [V]
    bool driving = false;      ///< the converter drives the motor
    bool fieldNeeded = false;  ///< the field is meant to be there
    bool feedbackUsed = false; ///< the speed controller goes by an encoder or a tacho
    double fieldReference = 1; ///< relative; a field weakened on purpose is not lost
    double earthCurrent = 0;   ///< that flows while the converter is live, of rated current
    bool phaseMissing = false;
    bool phaseOrderWrong = false;
    bool branchLost = false; ///< some of the current's pulses are missing
};

/// Supervision of mains, converter and motor.
class CProtection {
public:
    /// What one step has shown.
    Findings Step(double seconds, const MotorState& state, const Surroundings& around, const DriveSettings& settings,
                  const TripLevels& levels);
    /// The mains are gone and may still return: the converter waits.
    bool IsMainsAwaited() const { return m_mainsGap > 0; }
    /// Temperature rise by the square of the current, relative to that of rated current.
    double GetTemperatureRise() const { return m_rise; }
    /// The motor cools without current.
    void Rest(double seconds, const TripLevels& levels);

private:
    void Heat(double seconds, const MotorState& state, const DriveSettings& settings, const TripLevels& levels);
    bool IsFieldLost(double seconds, const MotorState& state, const Surroundings& around, const DriveSettings& settings,
                     const TripLevels& levels);
    bool IsStalled(double seconds, const MotorState& state, const DriveSettings& settings, const TripLevels& levels);

    double m_rise = 0;
    double m_current = 0;         ///< one step ago [A]
    double m_stalled = 0;         ///< [s]
    double m_leaking = 0;         ///< [s]
    double m_rippling = 0;        ///< [s]
    double m_mainsGap = 0;        ///< [s]
    double m_feedbackMissing = 0; ///< [s]
    double m_fieldMissing = 0;    ///< [s]
    double m_formerField = 0;     ///< one step ago [A]
    bool m_fieldWasThere = false;
};

} // namespace krt550
