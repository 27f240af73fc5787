#pragma once

#include <QtGlobal>

namespace krt550 {

class CRegisterFile;
struct DriveSettings;
struct MotorState;

/// Levels at which the drive trips.
struct TripLevels {
    double current = 0;     ///< [A]
    double voltage = 0;     ///< [V]
    double mains = 0;       ///< least [V]
    double field = 0;       ///< least, relative
    double fieldDelay = 0;  ///< field may be below that for [s]
    double fieldMask = 0;   ///< and at first, while it builds up, for [s]
    double speed = 0;       ///< [rad/s]
    double feedback = 0;    ///< a speed below this [rad/s]
    double feedbackEmf = 0; ///< while the EMF is above this [V] is no feedback; 0: not supervised
    bool thermal = false;   ///< the thermal model trips
    double thermalTime = 0; ///< [s]
    double thermalRise = 0; ///< relative to that of rated current
};

TripLevels ReadTripLevels(const CRegisterFile& registers, const DriveSettings& settings);

/// What the supervision has to know beside the motor's state.
struct Surroundings {
    double mains = 0;          ///< [V]
    bool driving = false;      ///< the converter drives the motor
    bool fieldNeeded = false;  ///< the field is meant to be there
    bool feedbackUsed = false; ///< the speed controller goes by an encoder or a tacho
    double fieldReference = 1; ///< relative; a field weakened on purpose is not lost
};

/// Supervision of converter and motor. Each step tells the code of a new trip, 0 for none.
class CProtection {
public:
    quint16 Step(double seconds, const MotorState& state, const Surroundings& around, const DriveSettings& settings,
                 const TripLevels& levels);
    /// Temperature rise by the square of the current, relative to that of rated current.
    double GetTemperatureRise() const { return m_rise; }
    /// The motor cools without current.
    void Rest(double seconds, const TripLevels& levels);

private:
    bool IsFieldLost(double seconds, const MotorState& state, const Surroundings& around, const DriveSettings& settings,
                     const TripLevels& levels);

    double m_rise = 0;
    double m_feedbackMissing = 0; ///< [s]
    double m_fieldMissing = 0;    ///< [s]
    double m_formerField = 0;     ///< one step ago [A]
    bool m_fieldWasThere = false;
};

} // namespace krt550
