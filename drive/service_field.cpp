// Service run 2: the field circuit by a voltage step at standstill.
#include "drive/registers.h"
#include "drive/service_runs.h"
#include "drive/test_bench.h"
#include "drive/tuning_rules.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kOff = 0.03;         ///< of rated field current
constexpr double kLongest = 20;       ///< a field may take to settle [s]
constexpr double kWindow = 0.25;      ///< between two looks at it [s]
constexpr double kSettled = 0.003;    ///< change over a window, of the value
constexpr double kLeastCurrent = 0.4; ///< to be reached, of rated field current
constexpr double kMisfit = 1.6;       ///< field resistance against the name plate, either way

} // namespace

CServiceRun RunField(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    const double rated = settings.ratedFieldCurrent;
    if (settings.fieldVoltageLimit <= 0)
        co_return diagnosis::kNoExciter;
    bench.mustStand = true;
    bench.Phase(15, 1);
    double started = bench.GetTime();
    do {
        if (bench.GetTime() - started > kLongest)
            co_return diagnosis::kFieldDoesNotFollow;
        bench.StartMean();
        co_yield kWindow;
    } while (bench.Mean().fieldCurrent > kOff * rated);
    co_yield 0.5;

    // The step, and the two time integrals that give the inductance whatever the exciter's own lag:
    // Lf*if = integral(uf) - Rf*integral(if).
    bench.Phase(75, 3);
    bench.command.field = FieldMode::Voltage;
    bench.command.fieldVoltage = settings.ratedFieldVoltage;
    started = bench.GetTime();
    double voltageTime = 0;
    double currentTime = 0;
    double former = 0;
    Measurement last;
    do {
        bench.StartMean();
        co_yield kWindow;
        former = last.fieldCurrent;
        last = bench.Mean();
        voltageTime += last.fieldVoltage * kWindow;
        currentTime += last.fieldCurrent * kWindow;
        if (last.fieldCurrent > 1.5 * rated)
            co_return diagnosis::kFieldResistance;
        if (bench.GetTime() - started > kLongest)
            co_return diagnosis::kFieldDoesNotFollow;
    } while (bench.GetTime() - started < 1.5 ||
             std::abs(last.fieldCurrent - former) > kSettled * last.fieldCurrent + 1e-3 * rated);
    if (last.fieldCurrent < kLeastCurrent * rated)
        co_return diagnosis::kFieldNotReached;

    bench.Phase(99, 1);
    bench.StartMean();
    co_yield 0.5;
    const Measurement steady = bench.Mean();
    const double resistance = steady.fieldVoltage / steady.fieldCurrent;
    const double fit = resistance / settings.FieldGainUnit();
    if (fit > kMisfit || fit < 1 / kMisfit)
        co_return diagnosis::kFieldResistance;
    const double time = (voltageTime / resistance - currentTime) / steady.fieldCurrent;
    if (!(time > 0))
        co_return diagnosis::kFieldDoesNotFollow;

    bench.command.field = FieldMode::Off;
    co_yield 0.5;
    const PiSetting field = ModulusOptimum(time * resistance, resistance, kExciterLag);
    bench.SetResult(reg::kFieldGain, std::min(600.0, field.gain / settings.FieldGainUnit()));
    bench.SetResult(reg::kFieldTime, std::max(1.0, field.time * 1000));
    co_return diagnosis::kNone;
}

} // namespace krt550
