#include "drive/analog_outputs.h"

#include "drive/drive_settings.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kMostVolts = 11;

// Value list of 15.03.
constexpr quint16 kBipolar = 0;
constexpr quint16 kLiveZero = 2;
constexpr quint16 kAbsolute = 3;

/// What counts as 100 % of a register.
double FullSignal(const ParameterDescription& parameter, const DriveSettings& settings,
                  const CRegisterFile& registers) {
    const std::pair<quint16, double> own[] = {{reg::kFieldCurrent, settings.ratedFieldCurrent},
                                              {reg::kFieldVoltage, settings.ratedFieldVoltage},
                                              {reg::kMainsVoltage, settings.ratedMains}};
    const std::pair<const char*, double> units[] = {
        {"rpm", registers.GetNumber(reg::kSpeedScaling, 0)},
        {"A", settings.ratedCurrent},
        {"V", settings.ratedVoltage},
    };
    for (const auto& [reg, full] : own)
        if (reg == parameter.reg)
            return full;
    for (const auto& [unit, full] : units)
        if (parameter.unit == QLatin1String(unit))
            return full;
    return 100;
}

double ShareOf(quint16 source, const DriveSettings& settings, const CRegisterFile& registers) {
    const ParameterDescription* parameter = registers.FindDescription(source);
    if (!parameter)
        return 0;
    const double full = FullSignal(*parameter, settings, registers);
    return full > 0 ? registers.GetNumber(source, 0) / full : 0;
}

double VoltsOf(double share, quint16 mode, double atFull) {
    if (mode == kBipolar)
        return share * atFull;
    const double positive = mode == kAbsolute ? std::abs(share) : std::max(0.0, share);
    constexpr double kZero = 2;
    return mode == kLiveZero ? kZero + positive * std::max(0.0, atFull - kZero) : positive * atFull;
}

} // namespace

void CAnalogOutputs::Step(double seconds, const DriveSettings& settings, const CRegisterFile& registers) {
    for (std::size_t i = 0; i < m_volts.size(); ++i) {
        const auto reg = [i](quint16 first) { return static_cast<quint16>(first + 5 * i); };
        const double share = ShareOf(registers.GetWord(reg(reg::kOutputIndex)), settings, registers);
        const double time = registers.GetNumber(reg(reg::kOutputFilter), 0) / 1000;
        const double atFull = registers.GetNumber(reg(reg::kOutputVolts), 10'000) / 1000;
        const double volts =
            VoltsOf(m_filters[i].Step(share, seconds, time), registers.GetWord(reg(reg::kOutputMode)), atFull);
        m_volts[i] = std::clamp(volts, -kMostVolts, kMostVolts);
    }
}

void CAnalogOutputs::Show(CRegisterFile& registers) const {
    for (std::size_t i = 0; i < m_volts.size(); ++i)
        registers.SetNumber(static_cast<quint16>(reg::kOutputVoltsShown + i), m_volts[i]);
}

} // namespace krt550
