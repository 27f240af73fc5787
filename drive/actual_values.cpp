#include "drive/actual_values.h"

#include "drive/drive_settings.h"
#include "drive/field_exciter.h"
#include "drive/motor_control.h"
#include "drive/register_file.h"
#include "drive/registers.h"
#include "drive/selected_references.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace krt550 {
namespace {

constexpr double kRpm = 30 / std::numbers::pi;
constexpr double kDegrees = 180 / std::numbers::pi;
constexpr quint16 kFirstOutputIndex = 1401; ///< index and bit number in turn, for eight outputs
constexpr int kOutputs = 8;

/// From bit 0 on.
template <std::size_t Count> quint16 WordOf(const bool (&bits)[Count]) {
    unsigned word = 0;
    for (std::size_t i = 0; i < Count; ++i)
        word |= bits[i] ? 1U << i : 0;
    return static_cast<quint16>(word);
}

} // namespace

void ShowActualValues(const MotorState& state, const ActualValues& values, const DriveSettings& settings,
                      CRegisterFile& registers) {
    const double current = state.armatureCurrent / settings.ratedCurrent * 100;
    const double flux = settings.fluxOfField(std::abs(state.fieldCurrent) / settings.ratedFieldCurrent);
    const double torque = std::copysign(flux, state.fieldCurrent) * current;
    const double power = state.armatureVoltage * state.armatureCurrent;
    const double field = state.fieldCurrent / settings.ratedFieldCurrent;
    const double reference = state.currentReference / settings.ratedCurrent * 100;
    const double speedError = state.bridge ? state.speedReference - state.signals.used : 0;
    const std::pair<quint16, double> numbers[] = {
        {reg::kSpeedFiltered, values.filteredSpeed * kRpm},
        {reg::kSpeedEmf, state.signals.emf * kRpm},
        {reg::kSpeedEncoder, state.signals.encoder * kRpm},
        {reg::kSpeed, state.signals.used * kRpm},
        {reg::kSpeedTacho, state.signals.tacho * kRpm},
        {reg::kCurrentRelative, current},
        {reg::kTorqueFiltered, torque},
        {reg::kTorqueRelative, torque},
        {reg::kTorque, torque / 100 * settings.ratedEmf * settings.ratedCurrent / settings.baseSpeed},
        {reg::kSpeedRelative, state.signals.used / settings.baseSpeed * 100},
        {reg::kMainsRelative, values.mains / settings.ratedMains * 100},
        {reg::kMainsVoltage, values.mains},
        {reg::kVoltageRelative, state.armatureVoltage / settings.ratedVoltage * 100},
        {reg::kArmatureVoltage, state.armatureVoltage},
        {reg::kConverterRelative,
         state.armatureCurrent / registers.GetNumber(reg::kConverterCurrent, settings.ratedCurrent) * 100},
        {reg::kArmatureCurrent, state.armatureCurrent},
        {reg::kEmfRelative, state.emf / settings.ratedVoltage * 100},
        {reg::kEmf, state.emf},
        {reg::kPower, power / 1000},
        {reg::kPowerRelative, power / (settings.ratedVoltage * settings.ratedCurrent) * 100},
        {reg::kTemperatureRise, values.temperatureRise * 100},
        {reg::kFiringAngle, std::acos(state.bridge ? state.cosine : settings.cosineLow) * kDegrees},
        {reg::kCurrentReference, reference},
        {reg::kSpeedError, speedError * kRpm},
        {reg::kFieldRelative, field * 100},
        {reg::kFieldCurrent, state.fieldCurrent},
        {reg::kFieldVoltage, state.fieldVoltage},
        {reg::kFlux, flux * 100},
        {reg::kTorqueUsed, state.torqueReference * 100},
        {reg::kReferenceOfCurrent, state.currentWanted / settings.ratedCurrent * 100},
        {reg::kReferenceLimited, reference},
        {reg::kFluxReference, settings.FluxOf(state.fieldReference) * 100},
        {reg::kFieldReference, state.fieldReference * 100},
    };
    for (const auto& [reg, number] : numbers)
        registers.SetNumber(reg, number);
    registers.SetWord(reg::kBridgeUsed, state.bridge > 0 ? 1 : state.bridge < 0 ? 2 : 0);
}

void ShowLimits(const MotorState& state, const DriveSettings& settings, const TorqueDemand& demand, double tooFast,
                CRegisterFile& registers) {
    const double high = std::min(settings.torqueHigh, demand.limit);
    const double low = std::max(settings.torqueLow, -demand.limit);
    const double rated = settings.ratedCurrent;
    const std::pair<quint16, double> limits[] = {{reg::kTorqueHighUsed, high * 100},
                                                 {reg::kTorqueLowUsed, low * 100},
                                                 {reg::kBridge1LimitUsed, settings.currentHigh / rated * 100},
                                                 {reg::kBridge2LimitUsed, settings.currentLow / rated * 100}};
    for (const auto& [reg, limit] : limits)
        registers.SetNumber(reg, limit);

    constexpr double kNear = 0.001; // of rated torque, current, field and full firing
    const double current = state.currentReference / rated;
    const double within = std::clamp(state.currentWanted, settings.currentLow, settings.currentHigh);
    const bool flows = std::abs(state.currentReference) > settings.zeroCurrent;
    const bool driven = state.bridge != 0;
    const bool armature[] = {
        driven && state.torqueReference >= high - kNear,
        driven && state.torqueReference <= low + kNear,
        driven && current >= settings.currentHigh / rated - kNear,
        driven && current <= settings.currentLow / rated + kNear,
        driven && flows && (state.cosine >= settings.cosineHigh - kNear || state.cosine <= settings.cosineLow + kNear),
        driven && state.torqueLimited,
        demand.cut > 0,
        demand.cut < 0,
        driven && std::abs(within - state.currentReference) > kNear * rated};
    const double missing = std::abs(state.fieldReference) * settings.ratedFieldCurrent - std::abs(state.fieldCurrent);
    const bool others[] = {tooFast > 0, tooFast < 0,
                           settings.weakens && driven &&
                               std::abs(settings.FluxOf(state.fieldReference)) <= settings.leastFlux + kNear,
                           missing > kNear * settings.ratedFieldCurrent &&
                               std::abs(state.fieldVoltage) >= (1 - kNear) * settings.fieldVoltageLimit};
    registers.SetWord(reg::kLimitWord, WordOf(armature));
    registers.SetWord(reg::kLimitWord2, WordOf(others));
}

void ShowLinkNodes(const FieldExciter& exciter, std::initializer_list<quint16> others, CRegisterFile& registers) {
    constexpr unsigned kNodes = 32;
    quint32 nodes = 0;
    const auto answer = [&nodes](quint16 node) {
        if (node >= 1 && node <= kNodes)
            nodes |= 1U << (node - 1);
    };
    answer(registers.GetWord(reg::kConverterNode));
    if (exciter.Answers(registers))
        answer(exciter.node);
    for (const quint16 node : others)
        answer(node);
    registers.SetWord(reg::kExciterFound, exciter.FindType(registers));
    registers.SetWord(reg::kLinkNodesLow, static_cast<quint16>(nodes & 0xFFFF));
    registers.SetWord(reg::kLinkNodesHigh, static_cast<quint16>(nodes >> 16));
}

void ShowDigitalOutputs(CRegisterFile& registers) {
    quint16 outputs = 0;
    for (int i = 0; i < kOutputs; ++i) {
        const auto place = static_cast<quint16>(kFirstOutputIndex + 2 * i);
        const int index = static_cast<int>(registers.GetNumber(place, 0));
        const int bit = static_cast<int>(registers.GetNumber(place + 1, 0));
        if (index == 0 || bit < 0 || bit > 15)
            continue;
        const unsigned word = registers.GetWord(static_cast<quint16>(std::abs(index)));
        const unsigned inverted = index < 0 ? 1 : 0; // a negative index inverts
        outputs |= static_cast<quint16>((((word >> bit) & 1U) ^ inverted) << i);
    }
    registers.SetWord(reg::kDigitalOutputs, outputs);
}

} // namespace krt550
