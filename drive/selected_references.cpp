#include "drive/selected_references.h"

#include "drive/analog_inputs.h"
#include "drive/digital_inputs.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

// Sources in the value lists of the selectors; 1 to 4 are AI1 to AI4.
constexpr quint16 kAnalogInputs = 4;
constexpr quint16 kFieldbus = 5;
constexpr quint16 kPotentiometer = 6;
constexpr quint16 kConstant = 7;

// 12.01
constexpr quint16 kBinary = 2; // 1: an input for each speed

} // namespace

void CSelectedReferences::Read(const CRegisterFile& registers) {
    m_pot.Read(registers);
    const double base = registers.GetNumber(reg::kBaseSpeed, 1500);
    const double limits = std::max(std::abs(registers.GetNumber(reg::kSpeedMinimum, -base)),
                                   registers.GetNumber(reg::kSpeedMaximum, base));
    const double chosen = registers.GetNumber(reg::kScalingChosen, 0);
    m_scaling = chosen > 0 ? chosen : limits;
    // A drive description without the selectors knows no other reference than the fieldbus'.
    m_sources = {registers.GetWord(reg::kReference1Source, kFieldbus), registers.GetWord(reg::kReference2Source)};
    m_gain = registers.GetNumber(reg::kReference1Gain, 100) / 100;
    m_constantMode = registers.GetWord(reg::kConstantSpeedMode);
    for (std::size_t i = 0; i < m_constants.size(); ++i)
        m_constants[i] = registers.GetNumber(static_cast<quint16>(reg::kConstantSpeed + i), 0);
    for (std::size_t i = 0; i < m_jogs.size(); ++i)
        m_jogs[i] = registers.GetNumber(static_cast<quint16>(reg::kJogSpeed + i), 0);
    m_directions = registers.GetWord(reg::kDirections);
}

double CSelectedReferences::SourceSpeed(quint16 source, const CAnalogInputs& analog,
                                        const CRegisterFile& registers) const {
    switch (source) {
    case kFieldbus:
        return registers.GetNumber(reg::kRemoteReference, 0);
    case kPotentiometer:
        return m_pot.GetSpeed();
    case kConstant:
        return m_constants[0];
    default:
        return analog.GetShare(source) * m_scaling;
    }
}

/// Jogging goes before constant speeds, and those before the references.
double CSelectedReferences::ChooseSpeed(int jog, const CDigitalInputs& digital) const {
    if (jog != 0)
        return m_jogs[static_cast<std::size_t>(jog - 1)];
    const bool first = digital.IsClosed(InputFunction::ConstantSpeed1);
    const bool second = digital.IsClosed(InputFunction::ConstantSpeed2);
    if (m_constantMode != 0 && (first || second))
        return m_constants[first && second && m_constantMode == kBinary ? 2 : first ? 0 : 1];
    const bool hasChoice = digital.IsConnected(InputFunction::Reference2);
    const bool other = digital.IsClosed(hasChoice ? InputFunction::Reference2 : InputFunction::Automatic);
    const double speed = m_references[other ? 1 : 0];
    return digital.IsClosed(InputFunction::Reverse) ? -speed : speed;
}

void CSelectedReferences::Step(double seconds, bool running, int jog, const CDigitalInputs& digital,
                               const CAnalogInputs& analog, const CRegisterFile& registers) {
    m_pot.Step(seconds, running, digital);
    m_references = {SourceSpeed(m_sources[0], analog, registers) * m_gain,
                    SourceSpeed(m_sources[1], analog, registers)};
    constexpr quint16 kForwardOnly = 1;
    constexpr quint16 kReverseOnly = 2;
    m_speed = ChooseSpeed(jog, digital);
    if (m_directions == kForwardOnly)
        m_speed = std::max(0.0, m_speed);
    if (m_directions == kReverseOnly)
        m_speed = std::min(0.0, m_speed);
    m_ramp = jog != 0 ? RampSet::Jog : digital.IsClosed(InputFunction::Ramp2) ? RampSet::Second : RampSet::First;
    StepTorque(seconds, digital, analog, registers);
}

void CSelectedReferences::StepTorque(double seconds, const CDigitalInputs& digital, const CAnalogInputs& analog,
                                     const CRegisterFile& registers) {
    const double byBus = registers.GetNumber(reg::kTorqueFromBus, 0) / 100;
    const auto share = [&](quint16 source) { return source > kAnalogInputs ? byBus : analog.GetShare(source); };
    const double wanted = share(registers.GetWord(reg::kTorqueSource));
    const double filtered = m_torqueFilter.Step(wanted, seconds, registers.GetNumber(reg::kTorqueFilter, 0) / 1000);
    const double asked = filtered * registers.GetNumber(reg::kLoadShare, 100) / 100;
    const double high = registers.GetNumber(reg::kTorqueReferenceHigh, 325) / 100;
    const double low = registers.GetNumber(reg::kTorqueReferenceLow, -325) / 100;
    m_torque.torque = std::clamp(asked, low, std::max(low, high));
    m_torque.cut = asked > high ? 1 : asked < low ? -1 : 0;
    m_torque.mode = digital.IsClosed(InputFunction::TorqueControl)
                        ? TorqueMode::Torque
                        : static_cast<TorqueMode>(registers.GetWord(reg::kTorqueSelector));

    const quint16 limit = registers.GetWord(reg::kTorqueLimitSource);
    m_torque.limit = limit ? std::abs(share(limit)) : TorqueDemand{}.limit;
    const quint16 current = registers.GetWord(reg::kCurrentSource); // 1 is the fieldbus, 2 AI1
    m_torque.current.reset();
    if (current)
        m_torque.current = current == 1 ? byBus : analog.GetShare(current - 1);
}

void CSelectedReferences::Show(CRegisterFile& registers) const {
    const std::pair<quint16, double> numbers[] = {
        {reg::kReference1, m_references[0]},          {reg::kReference2, m_references[1]},
        {reg::kReferenceSelected, m_speed},           {reg::kTorqueExternal, m_torque.torque * 100},
        {reg::kPotentiometerSpeed, m_pot.GetSpeed()}, {reg::kSpeedScaling, m_scaling},
    };
    for (const auto& [reg, number] : numbers)
        registers.SetNumber(reg, number);
}

} // namespace krt550
