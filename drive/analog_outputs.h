#pragma once

#include "drive/pi_controller.h"

#include <array>

namespace krt550 {

class CRegisterFile;
struct DriveSettings;

/// The analogue outputs: any register as a voltage, by each output's mode, filter and voltage at 100 % (group 15).
///
/// 100 % is, by the unit of the register: the speed scaling (rpm), rated current (A), rated voltage (V), for the field
/// and the mains theirs; otherwise 100 of its unit.
class CAnalogOutputs {
public:
    static constexpr int kOutputs = 2;

    void Step(double seconds, const DriveSettings& settings, const CRegisterFile& registers);
    double GetVolts(int output) const { return m_volts.at(static_cast<std::size_t>(output - 1)); } ///< output 1 or 2
    /// 5.11 and 5.12.
    void Show(CRegisterFile& registers) const;

private:
    std::array<CLag, kOutputs> m_filters;
    std::array<double, kOutputs> m_volts{};
};

} // namespace krt550
