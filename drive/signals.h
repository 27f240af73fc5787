#pragma once

#include "drive/switch_logic.h"

namespace krt550 {

class CRegisterFile;

/// Who commands the drive.
enum class ControlPlace {
    Remote, ///< terminals, or the overriding control by the main control word
    Local,  ///< the commissioning tool
    Other   ///< another place that does not give the drive up
};

/// The drive's inner state as its signals show it.
struct DriveSignals {
    SwitchInputs inputs;
    DriveState state = DriveState::Inhibited;
    quint16 statusBits = 0; ///< 0 to 6
    bool driving = false;
    ControlPlace place = ControlPlace::Remote;
    bool byLink = false; ///< the drive-to-drive link commands
    bool alarm = false;
    bool fieldOn = false;      ///< the field exciter is switched on
    bool secondBridge = false; ///< bridge 2 carries the current
    bool tuning = false;       ///< a service run is on
    bool weakening = false;    ///< the flux is below full flux
    bool reversed = false;     ///< the field is, by 45.18
    double speed = 0;          ///< [rpm]
    double speedReference = 0; ///< after the ramp [rpm]
    double baseSpeed = 0;      ///< [rpm]
    qint64 milliseconds = 0;   ///< since the drive was powered up
    int starts = 0;
    int trips = 0;
};

/// Puts the signals into the registers that show them.
void ShowSignals(const DriveSignals& state, CRegisterFile& registers);

} // namespace krt550
