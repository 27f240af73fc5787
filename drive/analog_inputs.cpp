#include "drive/analog_inputs.h"

#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kMostVolts = 11.5; ///< that an input can measure
constexpr double kLeastSpan = 0.1;  ///< between two points of a scale [V]

/// Selectors that name an analogue input, with the value that means AI1.
constexpr struct {
    quint16 reg, first;
} kUsers[] = {{reg::kReference1Source, 1},
              {reg::kReference2Source, 1},
              {reg::kTorqueSource, 1},
              {reg::kTorqueLimitSource, 1},
              {reg::kCurrentSource, 2}};

/// What lies below 0 %.
enum class Below { LowValue, Nothing, Mirror };

struct Mode {
    double zero; ///< voltage at 0 %
    Below below;
    bool live; ///< its signal never falls below 2 V
};

/// By the value list of 13.03.
constexpr Mode kModes[] = {{0, Below::LowValue, false},
                           {0, Below::Nothing, false},
                           {2, Below::Nothing, true},
                           {5, Below::Mirror, false},
                           {6, Below::Mirror, true}};

const Mode& ModeOf(quint16 number) {
    return kModes[std::min<std::size_t>(number, std::size(kModes) - 1)];
}

} // namespace

void CAnalogInputs::Read(const CRegisterFile& registers) {
    for (std::size_t i = 0; i < m_inputs.size(); ++i) {
        Input& input = m_inputs[i];
        const auto reg = [i](quint16 first) { return static_cast<quint16>(first + 4 * i); };
        input.high = registers.GetNumber(reg(reg::kInputHigh), 10'000) / 1000;
        input.low = registers.GetNumber(reg(reg::kInputLow), -10'000) / 1000;
        input.mode = registers.GetWord(reg(reg::kInputMode));
        input.filter = registers.GetNumber(reg(reg::kInputFilter), 0) / 1000;
        input.used = std::ranges::any_of(
            kUsers, [&](const auto& user) { return registers.GetWord(user.reg) == user.first + i; });
    }
    m_reaction = static_cast<Reaction>(registers.GetWord(reg::kBrokenLoopReaction));
}

void CAnalogInputs::Sample(double seconds, const std::array<double, kInputs>& volts) {
    for (std::size_t i = 0; i < m_inputs.size(); ++i) {
        Input& input = m_inputs[i];
        input.volts = std::clamp(volts[i], -kMostVolts, kMostVolts);
        input.broken = ModeOf(input.mode).live && input.volts < kBrokenLoop;
        if (!input.broken || m_reaction != Reaction::Alarm)
            input.share.Step(Convert(input, input.volts), seconds, input.filter);
    }
}

double CAnalogInputs::Convert(const Input& input, double volts) {
    const auto& [zero, below, live] = ModeOf(input.mode);
    const double above = volts - zero;
    const double span = input.high - zero;
    if (std::abs(span) < kLeastSpan)
        return 0;
    // A high value below 0 % turns the scale over.
    if (above * span >= 0 || below == Below::Mirror)
        return above / span;
    const double negative = zero - input.low;
    return below == Below::Nothing || std::abs(negative) < kLeastSpan ? 0 : -std::abs(above / negative);
}

double CAnalogInputs::GetShare(int input) const {
    return input >= 1 && input <= kInputs ? m_inputs[static_cast<std::size_t>(input - 1)].share.GetOutput() : 0;
}

Findings CAnalogInputs::GetFindings() const {
    Findings found;
    for (const Input& input : m_inputs)
        if (input.used && input.broken)
            found.Add(kFaultAnalogInput, m_reaction);
    return found;
}

void CAnalogInputs::Show(CRegisterFile& registers) const {
    for (std::size_t i = 0; i < m_inputs.size(); ++i) {
        registers.SetNumber(static_cast<quint16>(reg::kInputVolts + i), m_inputs[i].volts);
        registers.SetNumber(static_cast<quint16>(reg::kInputShare + i), m_inputs[i].share.GetOutput() * 100);
    }
}

} // namespace krt550
