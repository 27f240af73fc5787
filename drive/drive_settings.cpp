#include "drive/drive_settings.h"

#include "drive/motor_sets.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace krt550 {
namespace {

constexpr double kIdealOfLine = 3 * std::numbers::sqrt2 / std::numbers::pi; ///< Udi0 per line voltage
constexpr double kExciterOfLine = 0.9;                                      ///< single-phase bridge
constexpr double kGuessedReactance = 0.3;                                   ///< of rated voltage per current
constexpr double kGuessedResistance = 0.13;                                 ///< of rated voltage per current
constexpr double kFrequency = 100 * std::numbers::pi;
constexpr double kLeastStep = 0.001; ///< between the points of the flux curve

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

/// The points need not rise as they should: each is pushed beyond the one before.
void ReadFluxCurve(const CRegisterFile& registers, DriveSettings& settings) {
    const struct {
        quint16 reg;
        double flux;
    } points[] = {{reg::kField40, 0.4}, {reg::kField70, 0.7}, {reg::kField90, 0.9}};
    std::vector<std::pair<double, double>> fieldOverFlux = {{0, 0}};
    std::vector<std::pair<double, double>> fluxOverField = {{0, 0}};
    double least = kLeastStep;
    for (const auto& [reg, flux] : points) {
        const double field = std::clamp(registers.GetNumber(reg, flux * 100) / 100, least, 1 - 4 * kLeastStep);
        least = field + kLeastStep;
        fieldOverFlux.emplace_back(flux, field);
        fluxOverField.emplace_back(field, flux);
    }
    fieldOverFlux.emplace_back(1, 1);
    fluxOverField.emplace_back(1, 1);
    settings.fieldOfFlux = CMonotoneCurve(std::move(fieldOverFlux));
    settings.fluxOfField = CMonotoneCurve(std::move(fluxOverField));
}

} // namespace

double DriveSettings::CurrentGainUnit() const {
    return kIdealOfLine * ratedMains / ratedCurrent;
}

double DriveSettings::FieldGainUnit() const {
    return ratedFieldVoltage / ratedFieldCurrent;
}

DriveSettings ReadSettings(const CRegisterFile& registers, const MotorSet& motor) {
    const auto number = [&registers](quint16 reg, double fallback) { return registers.GetNumber(reg, fallback); };
    const auto share = [&number](quint16 reg, double percent) { return number(reg, percent) / 100; };
    const auto time = [&number](quint16 reg, double milliseconds) { return number(reg, milliseconds) / 1000; };
    const auto above = [&number](quint16 reg, double fallback) { return std::max(1e-3, number(reg, fallback)); };

    DriveSettings s;
    s.ratedVoltage = above(reg::kRatedVoltage, motor.voltage);
    s.ratedCurrent = above(reg::kRatedCurrent, motor.current);
    s.baseSpeed = above(reg::kBaseSpeed, motor.baseSpeed) * std::numbers::pi / 30;
    s.ratedFieldCurrent = above(reg::kRatedFieldCurrent, motor.fieldCurrent);
    s.ratedFieldVoltage = above(reg::kRatedFieldVoltage, motor.fieldVoltage);
    s.ratedMains = above(reg::kRatedMains, motor.mains);
    const int exciter = static_cast<int>(number(reg::kExciterUsed, 1));
    s.fieldVoltageLimit = exciter == 0 ? 0 : kExciterOfLine * number(reg::kFieldSupply, motor.fieldSupply);
    s.exciterReverses = exciter == 3 || exciter == 6;
    const quint16 fieldMode = registers.GetWord(reg::kFieldMode);
    s.fieldReverses = s.exciterReverses && fieldMode >= 2;
    s.reversesTurning = number(reg::kReversesTurning, 1) != 0;
    s.reversalTime = time(reg::kReversalTime, 15000);
    s.reversedLevel = share(reg::kReversedLevel, 10);

    s.current = {number(reg::kCurrentGain, 0.1) * s.CurrentGainUnit(), time(reg::kCurrentTime, 50)};
    s.emfForward = number(reg::kCurrentControllerType, 1) != 0;
    s.resistance = number(reg::kArmatureResistance, motor.ra * 1000) / 1000;
    s.resistanceKnown = s.resistance > 0;
    if (!s.resistanceKnown)
        s.resistance = kGuessedResistance * s.ratedVoltage / s.ratedCurrent;
    s.inductance = number(reg::kArmatureInductance, 0) / 1000;
    if (s.inductance <= 0)
        s.inductance = kGuessedReactance * s.ratedVoltage / s.ratedCurrent / kFrequency;
    s.ratedEmf = std::max(0.1 * s.ratedVoltage, s.ratedVoltage - s.resistance * s.ratedCurrent);
    s.currentSlope = share(reg::kCurrentSlope, 10) * s.ratedCurrent * 1000;
    const int bridges = static_cast<int>(number(reg::kBridgesUsed, 0));
    const bool oneBridge = number(reg::kBridges, 2) < 2;
    const double converter = number(reg::kConverterCurrent, motor.converterCurrent);
    s.currentHigh = bridges == 2 ? 0 : std::min(converter, share(reg::kCurrentLimit1, 100) * s.ratedCurrent);
    s.currentLow =
        bridges == 1 || oneBridge ? 0 : std::max(-converter, share(reg::kCurrentLimit2, -100) * s.ratedCurrent);
    s.cosineHigh = std::cos(Radians(number(reg::kSmallestAngle, 15)));
    s.cosineLow = std::cos(Radians(number(reg::kLargestAngle, 150)));
    s.zeroCurrent = share(reg::kZeroCurrent, 1) * s.ratedCurrent;
    s.reversalDelay = time(reg::kReversalDelay, 5);

    s.field = {number(reg::kFieldGain, 0.2) * s.FieldGainUnit(), time(reg::kFieldTime, 200)};
    s.weakens = fieldMode == 1 || fieldMode == 3;
    s.emfLimit = share(reg::kEmfMaximum, 100) * s.ratedEmf;
    s.leastFlux = share(reg::kLeastFlux, 20);
    s.emf = {number(reg::kEmfGain, 0.5), time(reg::kEmfTime, 50)};
    s.emfHigh = share(reg::kEmfHigh, 10);
    s.emfLow = share(reg::kEmfLow, -100);
    s.leastField = share(reg::kLeastField, 50);
    ReadFluxCurve(registers, s);

    const int source = static_cast<int>(number(reg::kSpeedSource, 0));
    s.speedSource = source == 1 || source == 2 ? static_cast<SpeedSource>(source) : SpeedSource::Emf;
    s.encoderPulses = above(reg::kEncoderPulses, 1024);
    s.encoderEvaluation = static_cast<EncoderEvaluation>(registers.GetWord(reg::kEncoderEvaluation, 2));
    s.tachoVoltage = above(reg::kTachoVoltage, 60);
    s.tachoAdjust = share(reg::kTachoAdjust, 100);

    s.speed = {number(reg::kSpeedGain, 10), time(reg::kSpeedTime, 200)};
    if (number(reg::kSpeedControllerType, 0) != 0)
        s.speed.time = 0;
    s.feedbackFilter = time(reg::kFeedbackFilter, 5);
    s.emfFilter = time(reg::kEmfFilter, 10);
    s.errorFilter = time(reg::kErrorFilter, 0);
    s.referenceFilter = time(reg::kReferenceFilter, 0);
    s.torqueHigh = share(reg::kTorqueMaximum, 100);
    s.torqueLow = share(reg::kTorqueMinimum, -100);
    return s;
}

} // namespace krt550
