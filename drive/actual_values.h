#pragma once

#include <QtGlobal>

namespace krt550 {

class CRegisterFile;
struct DriveSettings;
struct FieldExciter;
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

/// Shows the torque limits in effect, with `limit` (relative) beside the parameters', and which limits are reached.
void ShowLimits(const MotorState& state, const DriveSettings& settings, double limit, CRegisterFile& registers);

/// Shows the exciter that is found, and the nodes that answer on the link: the converter, and an external exciter.
void ShowLinkNodes(const FieldExciter& exciter, CRegisterFile& registers);

/// Sets the digital outputs from the bits that their indices and bit numbers choose.
void ShowDigitalOutputs(CRegisterFile& registers);

} // namespace krt550
