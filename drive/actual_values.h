#pragma once

#include <QtGlobal>

namespace krt550 {

class CRegisterFile;
struct DriveSettings;
struct MotorState;

/// What the actual values are made of beside the motor's state.
struct ActualValues {
    double filteredSpeed = 0;   ///< [rad/s]
    double mains = 0;           ///< [V]
    double temperatureRise = 0; ///< relative
};

/// Puts currents, voltages, speeds, torques and references into the registers that show them.
void ShowActualValues(const MotorState& state, const ActualValues& values, const DriveSettings& settings,
                      CRegisterFile& registers);

/// What is wired to the digital inputs at the works.
struct WiredInputs {
    bool converterFan = false;  ///< acknowledge, input 1
    bool motorFan = false;      ///< acknowledge, input 2
    bool contactor = false;     ///< acknowledge, input 3
    bool emergencyFree = false; ///< nobody has pressed the emergency stop, input 5
};
void ShowDigitalInputs(const WiredInputs& wired, CRegisterFile& registers);

/// Shows the nodes that answer on the link: the converter, and an exciter that is not on its board.
void ShowLinkNodes(CRegisterFile& registers);

/// Sets the digital outputs from the bits that their indices and bit numbers choose.
void ShowDigitalOutputs(CRegisterFile& registers);

} // namespace krt550
