// Service runs 5 and 14: which speed feedback is there and what is wrong with it; fine tuning of a tacho.
#include "drive/registers.h"
#include "drive/service_runs.h"
#include "drive/service_turning.h"
#include "drive/speed_feedback.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace krt550 {
namespace {

constexpr double kRunUp = 4;                                   ///< to base speed [s]
constexpr double kLeastSignal = 0.02;                          ///< of base speed; less is none
constexpr double kEncoderTolerance = 0.1;                      ///< against the EMF
constexpr double kTachoTolerance = 0.2;                        ///< against the EMF
constexpr double kGuessTolerance = 0.1;                        ///< more, while the armature resistance is a guess
constexpr double kMostNoise = 0.03;                            ///< of a tacho, of base speed either way
constexpr double kMostTachoVoltage = 270;                      ///< at the terminals [V]
constexpr double kTachoRanges[] = {30, 90, kMostTachoVoltage}; ///< upper ends [V]
constexpr double kHandTachoSpread = 0.5; ///< a hand-held tacho that shows another speed than this is misread

/// Field on, then up to base speed, on the EMF or on the chosen feedback. 0 or why not.
CServiceRun ToBaseSpeed(CTestBench& bench, SpeedGuide guide) {
    const double base = bench.GetSettings().baseSpeed;
    if (bench.GetSpeedLimit() < 0.99 * base)
        co_return diagnosis::kSpeedLimits;
    bench.command.guide = guide;
    if (const quint16 code = co_await turning::FieldUp(bench, 15))
        co_return code;
    co_return co_await turning::RunUp(bench, base, kRunUp, 60);
}

quint16 JudgeEncoder(double ratio, double guess) {
    if (std::abs(ratio) < kLeastSignal)
        return diagnosis::kEncoderMissing;
    if (std::abs(std::abs(ratio) - 1) > kEncoderTolerance + guess)
        return diagnosis::kEncoderPulses;
    return ratio < 0 ? diagnosis::kEncoderReversed : diagnosis::kNone;
}

quint16 JudgeTacho(double ratio, double voltage, double guess) {
    if (std::abs(ratio) < kLeastSignal)
        return diagnosis::kTachoMissing;
    if (voltage > kMostTachoVoltage)
        return diagnosis::kTachoVoltage;
    if (std::abs(std::abs(ratio) - 1) > kTachoTolerance + guess)
        return diagnosis::kTachoScaling;
    return ratio < 0 ? diagnosis::kTachoReversed : diagnosis::kNone;
}

} // namespace

CServiceRun RunFeedbackTest(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    if (const quint16 code = co_await ToBaseSpeed(bench, SpeedGuide::Emf))
        co_return code;

    bench.Phase(78, 1);
    bench.StartMean();
    double least = bench.Now().tachoSpeed;
    double most = least;
    for (const double start = bench.GetTime(); bench.GetTime() < start + 1;) {
        co_yield 0;
        least = std::min(least, bench.Now().tachoSpeed);
        most = std::max(most, bench.Now().tachoSpeed);
    }
    const bool noisy = (most - least) / 2 > kMostNoise * settings.baseSpeed;
    const Measurement mean = bench.Mean();
    const double encoder = mean.encoderSpeed / mean.emfSpeed;
    const double tacho = mean.tachoSpeed / mean.emfSpeed;
    // A signal that is there decides; without any, the device that is chosen is what must be missing.
    const double rpm = settings.baseSpeed * 30 / std::numbers::pi;
    const double voltage = settings.tachoVoltage * rpm / 1000 * std::abs(tacho) / settings.tachoAdjust;
    auto found = SpeedSource::Emf;
    if (std::abs(encoder) >= kLeastSignal || settings.speedSource == SpeedSource::Encoder)
        found = SpeedSource::Encoder;
    if (std::abs(tacho) >= kLeastSignal || (settings.speedSource == SpeedSource::Tacho && found == SpeedSource::Emf))
        found = SpeedSource::Tacho;
    quint16 outcome = diagnosis::kNone;
    const double guess = settings.resistanceKnown ? 0 : kGuessTolerance;
    if (found == SpeedSource::Encoder)
        outcome = JudgeEncoder(encoder, guess);
    else if (found == SpeedSource::Tacho)
        outcome = noisy ? diagnosis::kTachoNoisy : JudgeTacho(tacho, voltage, guess);
    if (outcome) {
        // What is chosen may be what is wrong: the way down is the EMF's too.
        bench.RampSpeed(0, settings.baseSpeed / kRunUp);
        co_yield kRunUp + 0.5;
        co_return outcome;
    }

    bench.SetResult(reg::kSpeedSource, static_cast<int>(found));
    if (found == SpeedSource::Tacho) {
        const auto* const range = std::ranges::lower_bound(kTachoRanges, voltage);
        bench.SetResult(reg::kTachoRange, static_cast<double>(range - kTachoRanges) + 1);
    }
    bench.Publish();
    bench.Phase(99, 0.1);
    // The motor keeps its speed until it is stopped.
    for (;;)
        co_yield 1;
}

CServiceRun RunTachoTuning(CTestBench& bench) {
    if (bench.GetSettings().speedSource != SpeedSource::Tacho)
        co_return diagnosis::kNoFeedback;
    if (const quint16 code = co_await ToBaseSpeed(bench, SpeedGuide::Chosen))
        co_return code;
    bench.Phase(99, 2);
    double adjust = bench.GetSettings().tachoAdjust;
    for (;;) {
        bench.StartMean();
        co_yield 0.2;
        const double shown = bench.TakeHandTacho();
        if (shown == 0)
            continue;
        adjust *= shown / bench.Mean().tachoSpeed;
        bench.SetResult(reg::kTachoAdjust, adjust * 100);
        bench.Publish();
        co_yield 2; // the speed follows
    }
}

bool IsHandTachoPlausible(double shown, double tacho) {
    return shown * tacho > 0 && std::abs(shown / tacho - 1) <= kHandTachoSpread;
}

} // namespace krt550
