// Service run 2: the field circuit by a voltage step at standstill.
#include "drive/registers.h"
#include "drive/service_runs.h"
#include "drive/test_bench.h"
#include "drive/tuning_rules.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace krt550 {
namespace {

constexpr double kOff = 0.03;         ///< of rated field current
constexpr double kDecay = 60;         ///< a field may take to go out [s]
constexpr double kLongest = 20;       ///< the step is watched at most so long, settled or not [s]
constexpr double kShortest = 0.5;     ///< and at least [s]
constexpr double kWindow = 0.25;      ///< between two looks at it [s]
constexpr double kStep = 0.8;         ///< of rated field voltage: a cold winding draws a third more than a warm one
constexpr double kSettled = 0.004;    ///< change over a window, of rated field current
constexpr double kLeastCurrent = 0.4; ///< to be reached, of rated field current
constexpr double kMostCurrent = 1.2;  ///< of rated field current
constexpr double kMisfit = 1.6;       ///< field resistance against the name plate, either way
constexpr double kSmoothing = 0.02;   ///< of the current at a point of the curve [s]

/// Current and time integrals up to one point of the response.
struct ResponsePoint {
    double current = 0;     ///< [A]
    double voltageTime = 0; ///< [V*s]
    double currentTime = 0; ///< [A*s]
};

} // namespace

CServiceRun RunField(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    const double rated = settings.ratedFieldCurrent;
    if (settings.fieldVoltageLimit <= 0)
        co_return diagnosis::kNoExciter;
    bench.mustStand = true;
    bench.Phase(15, 1);
    const double started = bench.GetTime();
    do {
        if (bench.GetTime() - started > kDecay)
            co_return diagnosis::kFieldDoesNotFollow;
        bench.StartMean();
        co_yield kWindow;
    } while (bench.Mean().fieldCurrent > kOff * rated);
    co_yield 0.5;

    // Lf*if = integral(uf) - Rf*integral(if) holds at every point of the response, whatever the exciter's own lag and
    // however far the field still is from its end: two points give Rf and Lf.
    bench.Phase(75, 3);
    bench.StartMean();
    co_yield 0.1;
    const double rest = bench.Mean().fieldCurrent;
    bench.command.field = FieldMode::Voltage;
    bench.command.fieldVoltage = kStep * settings.ratedFieldVoltage;
    std::vector<ResponsePoint> points;
    ResponsePoint now;
    CLag current;
    current.Preset(rest);
    double time = 0;
    double change = 0;
    do {
        const double windowEnd = time + kWindow;
        while (time < windowEnd) {
            co_yield 0;
            time += CMotorControl::kStep;
            current.Step(bench.Now().fieldCurrent, CMotorControl::kStep, kSmoothing);
            now.voltageTime += bench.Now().fieldVoltage * CMotorControl::kStep;
            now.currentTime += bench.Now().fieldCurrent * CMotorControl::kStep;
        }
        change = std::abs(current.GetOutput() - now.current);
        now.current = current.GetOutput();
        points.push_back(now);
        if (now.current > kMostCurrent * rated)
            co_return diagnosis::kFieldResistance;
    } while (time < kShortest || (time < kLongest && change > kSettled * rated));
    if (points.back().current < kLeastCurrent * kStep * rated)
        co_return diagnosis::kFieldNotReached;

    bench.Phase(99, 0.5);
    const ResponsePoint& half = points[points.size() / 2 - 1];
    const ResponsePoint& end = points.back();
    const double resistance = ((half.current - rest) * end.voltageTime - (end.current - rest) * half.voltageTime) /
                              ((half.current - rest) * end.currentTime - (end.current - rest) * half.currentTime);
    const double fit = resistance / settings.FieldGainUnit();
    if (!(fit < kMisfit && fit > 1 / kMisfit))
        co_return diagnosis::kFieldResistance;
    const double inductance = (end.voltageTime - resistance * end.currentTime) / (end.current - rest);
    if (!(inductance > 0))
        co_return diagnosis::kFieldDoesNotFollow;

    bench.command.field = FieldMode::Off;
    co_yield 1;
    const PiSetting field = ModulusOptimum(inductance, resistance, kExciterLag);
    bench.SetResult(reg::kFieldGain, std::min(600.0, field.gain / settings.FieldGainUnit()));
    bench.SetResult(reg::kFieldTime, std::max(1.0, field.time * 1000));
    co_return diagnosis::kNone;
}

} // namespace krt550
