#pragma once

#include "drive/supervision.h"

namespace krt550 {

class CRegisterFile;
struct DriveSettings;

/// Levels at which the drive trips or warns.
struct TripLevels {
    double current = 0;      ///< [A]
    double currentRise = 0;  ///< [A/s]; 0: not supervised
    double voltage = 0;      ///< [V]
    double mains = 0;        ///< least [V]
    double mainsAlarm = 0;   ///< below this it is warned of [V]
    double longestGap = 0;   ///< of the mains that is waited for, 0: none [s]
    double field = 0;        ///< least, relative
    double fieldMost = 0;    ///< relative
    double fieldDelay = 0;   ///< field may be below that for [s]
    double fieldMask = 0;    ///< and at first, while it builds up, for [s]
    double speed = 0;        ///< [rad/s]
    double feedback = 0;     ///< a speed below this [rad/s]
    double feedbackEmf = 0;  ///< while the EMF is above this [V] is no feedback; 0: not supervised
    double stallTime = 0;    ///< [s]; 0: not supervised
    double stallSpeed = 0;   ///< [rad/s]
    double stallTorque = 0;  ///< relative
    double earthCurrent = 0; ///< of rated current
    double earthDelay = 0;   ///< [s]
    Reaction earth = Reaction::None;
    bool thermal = false;    ///< the thermal model warns and trips
    bool ownFan = false;     ///< the motor's fan sits on its shaft
    double thermalTime = 0;  ///< [s]
    double thermalAlarm = 0; ///< temperature rise relative to that of rated current
    double thermalRise = 0;  ///< the same, to trip
};

TripLevels ReadTripLevels(const CRegisterFile& registers, const DriveSettings& settings);

} // namespace krt550
