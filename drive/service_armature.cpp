// Service run 1: the armature circuit at standstill, without field.
#include "drive/registers.h"
#include "drive/service_runs.h"
#include "drive/six_pulse_converter.h"
#include "drive/test_bench.h"
#include "drive/tuning_rules.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace krt550 {
namespace {

using std::numbers::pi;

constexpr double kFieldOff = 0.03;      ///< of rated field current
constexpr double kFieldDecay = 60;      ///< may take [s]
constexpr double kLeastLimit = 0.15;    ///< current limit that allows any measurement, of rated current
constexpr double kMostCurrent = 1.0;    ///< a commutator at standstill bears it for seconds, of rated current
constexpr double kRise = 0.25;          ///< of the current towards the continuous region [rated/s]
constexpr double kContinuousFor = 0.05; ///< [s]
constexpr double kMeanFor = 2.5;        ///< keeps the noise in the resistance below half a percent [s]
constexpr double kPulseCurrent = 0.15;  ///< wanted peak, of rated current
constexpr int kPulses = 5;              ///< at the angle that gives it

double DegreesToRadians(double degrees) {
    return degrees * pi / 180;
}

} // namespace

double PulsePeak(double peakVoltage, double frequency, double alpha, double resistance, double inductance) {
    constexpr int kSteps = 400;
    const double width = (pi * 2 / 3 - alpha) / kSteps; // the voltage is 0 at 180 degrees, the peak not later
    const double seconds = width / frequency;
    double current = 0;
    double most = 0;
    for (int i = 0; i < kSteps; ++i) {
        const double theta = pi / 3 + alpha + (i + 0.5) * width;
        const double excess = peakVoltage * std::sin(theta) - resistance * current;
        current -= excess / resistance * std::expm1(-resistance / inductance * seconds);
        most = std::max(most, current);
    }
    return most;
}

double InductanceOfPeak(double peakVoltage, double frequency, double alpha, double resistance, double current) {
    if (current <= 0 || resistance <= 0)
        return 0;
    // Without resistance the peak would be Upeak*(1 + cos(60 deg + alpha))/(w*L); resistance only lowers it.
    double high = peakVoltage * (1 + std::cos(pi / 3 + alpha)) / (frequency * current);
    double low = high / 100;
    for (int i = 0; i < 40; ++i) {
        const double middle = (low + high) / 2;
        (PulsePeak(peakVoltage, frequency, alpha, resistance, middle) > current ? low : high) = middle;
    }
    return (low + high) / 2;
}

CServiceRun RunArmature(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    const double rated = settings.ratedCurrent;
    const double most = std::min(settings.currentHigh, kMostCurrent * rated);
    if (most < kLeastLimit * rated)
        co_return diagnosis::kLimitTooLow;

    // Without field a current makes no torque.
    bench.mustStand = true;
    bench.Phase(10, 1);
    bench.StartMean();
    co_yield 0.1;
    while (bench.Mean().fieldCurrent > kFieldOff * settings.ratedFieldCurrent) {
        if (bench.GetTime() > kFieldDecay)
            co_return diagnosis::kFieldDoesNotFollow;
        bench.StartMean();
        co_yield 0.1;
    }

    // The current rises until it has no gaps any more.
    bench.Phase(40, most / rated / kRise);
    bench.command.armature = ArmatureMode::Current;
    double line = 0;
    const double began = bench.GetTime();
    double since = began;
    bench.StartMean();
    while (bench.GetTime() - since < kContinuousFor) {
        bench.command.current = std::min(most, bench.command.current + kRise * rated * CMotorControl::kStep);
        if (!bench.IsCurrentContinuous()) {
            since = bench.GetTime();
            bench.StartMean();
        }
        const bool waited = bench.GetTime() - began > 10 + 3 * most / rated / kRise;
        if (waited || (bench.command.current >= most && since > bench.GetTime() - CMotorControl::kStep)) {
            // Give the current the time to follow before judging it.
            bench.StartMean();
            co_yield 1.0;
            if (bench.IsCurrentContinuous())
                continue;
            co_return bench.Mean().armatureCurrent < 0.02 * rated ? diagnosis::kNoCurrent : diagnosis::kNotContinuous;
        }
        co_yield 0;
    }
    line = bench.Mean().armatureCurrent;

    // Two continuous currents: the brushes' drop cancels.
    Measurement points[2];
    const double levels[] = {std::max(1.3 * line, most / 2), most};
    if (levels[0] > 0.85 * most)
        co_return diagnosis::kNotContinuous;
    for (int i = 0; i < 2; ++i) {
        bench.Phase(i == 0 ? 55 : 70, 2);
        bench.command.current = levels[i];
        co_yield 1.0;
        bench.StartMean();
        co_yield kMeanFor;
        points[i] = bench.Mean();
        if (std::abs(points[i].armatureCurrent - levels[i]) > 0.1 * levels[i])
            co_return diagnosis::kCurrentDoesNotFollow;
    }
    const double resistance = (points[1].armatureVoltage - points[0].armatureVoltage) /
                              (points[1].armatureCurrent - points[0].armatureCurrent);
    if (!(resistance > 0) || resistance > settings.ratedVoltage / rated)
        co_return diagnosis::kNoResistance;

    // Single pulses, later ones first, until the peak can be measured well.
    bench.Phase(95, 2);
    double inductance = 0;
    int measured = 0;
    for (int degrees = 118; measured < kPulses && degrees > 60;) {
        bench.command.armature = ArmatureMode::Blocked;
        co_yield 0.05;
        const double alpha = DegreesToRadians(degrees);
        bench.command.armature = ArmatureMode::Pulse;
        bench.command.firingAngle = alpha;
        double peak = 0;
        co_yield 0;
        for (const double start = bench.GetTime(); !bench.IsPulseOver() && bench.GetTime() < start + 0.02;) {
            peak = std::max(peak, bench.Now().armatureCurrent);
            co_yield 0;
        }
        if (peak < kPulseCurrent * rated) {
            degrees -= 1;
            continue;
        }
        inductance += InductanceOfPeak(bench.GetPeak(), bench.GetFrequency(), alpha, resistance, peak) / kPulses;
        ++measured;
    }
    // The discontinuous limit by the formula must agree with what has been seen.
    const double formula = bench.GetIdealVoltage() * 0.0931 / (bench.GetFrequency() * std::max(inductance, 1e-9));
    if (measured < kPulses || formula > 3 * line || formula < line / 3)
        co_return diagnosis::kNoInductance;
    bench.command.armature = ArmatureMode::Blocked;
    co_yield 0.2;

    const PiSetting current = ModulusOptimum(inductance, resistance, kConverterLag);
    bench.SetResult(reg::kCurrentGain, current.gain / settings.CurrentGainUnit());
    bench.SetResult(reg::kCurrentTime, current.time * 1000);
    bench.SetResult(reg::kDiscontinuousLine, line / rated * 100);
    bench.SetResult(reg::kArmatureInductance, inductance * 1000);
    bench.SetResult(reg::kArmatureResistance, resistance * 1000);
    co_return diagnosis::kNone;
}

} // namespace krt550
