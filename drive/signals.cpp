#include "drive/signals.h"

#include "drive/control_word.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <cmath>
#include <utility>

namespace krt550 {
namespace {

constexpr double kSpeedTolerance = 0.01; ///< of base speed
constexpr double kSpeedThreshold = 0.05; ///< of base speed

// Bits of the auxiliary status word.
constexpr quint16 kAuxFansOn = 1U << 0;
constexpr quint16 kAuxContactorClosed = 1U << 1;
constexpr quint16 kAuxFieldOn = 1U << 2;
constexpr quint16 kAuxZeroSpeed = 1U << 3;
constexpr quint16 kAuxLocalControl = 1U << 4;
constexpr quint16 kAuxSecondBridge = 1U << 5;
constexpr quint16 kAuxTuning = 1U << 6;
constexpr quint16 kAuxWeakening = 1U << 7;
constexpr quint16 kAuxReversed = 1U << 8;

quint16 MainStatus(const DriveSignals& state) {
    quint16 word = state.statusBits;
    const double speedError = std::abs(state.speedReference - state.speed);
    if (state.driving && speedError <= kSpeedTolerance * state.baseSpeed)
        word |= status::kSpeedInTolerance;
    if (state.place != ControlPlace::Local)
        word |= status::kControlRequested;
    if (state.alarm)
        word |= status::kWarning;
    if (std::abs(state.speed) >= kSpeedThreshold * state.baseSpeed)
        word |= status::kSpeedThreshold;
    return word;
}

quint16 AuxiliaryStatus(const DriveSignals& state) {
    const std::pair<bool, quint16> bits[] = {
        {state.inputs.contactorClosed, kAuxFansOn | kAuxContactorClosed},
        {state.fieldOn, kAuxFieldOn},
        {state.inputs.standstill, kAuxZeroSpeed},
        {state.place == ControlPlace::Local, kAuxLocalControl},
        {state.secondBridge, kAuxSecondBridge},
        {state.tuning, kAuxTuning},
        {state.weakening, kAuxWeakening},
        {state.reversed, kAuxReversed},
    };
    quint16 word = 0;
    for (const auto& [set, bit] : bits)
        word |= set ? bit : 0;
    return word;
}

/// Number of the state in the value list of the drive state.
quint16 StateNumber(const DriveSignals& state) {
    if (state.inputs.fault)
        return 8;
    switch (state.state) {
    case DriveState::Inhibited:
        return state.inputs.standstill ? 0 : 7;
    case DriveState::Ready:
        return 2;
    case DriveState::On:
        return 3;
    case DriveState::Operation:
        return state.inputs.controlWord & control::kEnableOperation ? 4 : 5;
    case DriveState::QuickStopping:
        return 6;
    case DriveState::SwitchingOff:
        return 5;
    }
    return 0;
}

/// Number of the control place in its value list.
quint16 PlaceNumber(const DriveSignals& state) {
    if (state.place == ControlPlace::Local)
        return 1;
    if (state.byLink)
        return 3;
    const bool overriding = state.inputs.controlWord & control::kByOverridingControl;
    return overriding || state.place == ControlPlace::Other ? 2 : 0;
}

} // namespace

void ShowSignals(const DriveSignals& state, CRegisterFile& registers) {
    for (const quint16 reference : {reg::kSpeedReference, reg::kSpeedReferenceSum})
        registers.SetNumber(reference, state.speedReference);

    constexpr qint64 kMinute = 60 * 1000;
    constexpr qint64 kDay = 24 * 60 * kMinute;
    const struct {
        quint16 reg;
        quint16 word;
    } words[] = {
        {reg::kSystemTime, static_cast<quint16>(state.milliseconds / kMinute)},
        {reg::kDaysPowered, static_cast<quint16>(state.milliseconds / kDay)},
        {reg::kStartCount, static_cast<quint16>(state.starts)},
        {reg::kTripCount, static_cast<quint16>(state.trips)},
        {reg::kUsedControlWord, state.inputs.controlWord},
        {reg::kStatusWord, MainStatus(state)},
        {reg::kAuxiliaryStatusWord, AuxiliaryStatus(state)},
        {reg::kDriveState, StateNumber(state)},
        {reg::kControlPlace, PlaceNumber(state)},
    };
    for (const auto& [reg, word] : words)
        registers.SetWord(reg, word);
}

} // namespace krt550
