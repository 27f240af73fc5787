#pragma once

#include <QtGlobal>

#include <initializer_list>

namespace krt550 {

class CRegisterFile;
struct DriveSettings;
struct FieldExciter;
struct MotorState;
struct TorqueDemand;

/// What the actual values are made of beside the motor's state.
struct ActualValues {
    double filteredSpeed = 0;   ///< [rad/s]
    double mains = 0;           ///< [V]
    double temperatureRise = 0; ///< relative
};

/// Puts currents, voltages, speeds, torques and references into the registers that show them.
void ShowActualValues(const MotorState& state, const ActualValues& values, const DriveSettings& settings,
                      CRegisterFile& registers);

/// Shows the limits in effect of torque and current, and which limits are reached. `tooFast` [rpm] is what the speed
/// limits take away from the reference, above 0 by the maximum, below 0 by the minimum.
void ShowLimits(const MotorState& state, const DriveSettings& settings, const TorqueDemand& demand, double tooFast,
                CRegisterFile& registers);

/// Shows the exciter that is found, and the nodes that answer on the link: the converter, an external exciter, and
/// `others` (0: none).
void ShowLinkNodes(const FieldExciter& exciter, std::initializer_list<quint16> others, CRegisterFile& registers);

/// Sets the digital outputs from the bits that their indices and bit numbers choose.
void ShowDigitalOutputs(CRegisterFile& registers);

} // namespace krt550
