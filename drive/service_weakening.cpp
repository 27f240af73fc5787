// Service run 3: flux curve and EMF controller at base speed.
#include "drive/registers.h"
#include "drive/service_runs.h"
#include "drive/service_turning.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kRunUp = 5;         ///< to base speed [s]
constexpr double kWindow = 0.05;     ///< between two looks at the field [s]
constexpr double kFollows = 0.01;    ///< field current against its reference, relative
constexpr double kFluxMatch = 0.004; ///< relative
constexpr int kMatches = 6;          ///< windows in a row
constexpr double kPointTime = 15;    ///< a point of the curve may take [s]
constexpr double kEmfLag = 0.010;    ///< lag of the EMF measurement [s]

} // namespace

CServiceRun RunWeakening(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    if (!settings.weakens)
        co_return diagnosis::kNoWeakening;
    const double base = settings.baseSpeed;
    if (bench.GetSpeedLimit() < 0.99 * base)
        co_return diagnosis::kSpeedLimits;

    if (const quint16 code = co_await turning::FieldUp(bench, 10))
        co_return code;
    if (const quint16 code = co_await turning::RunUp(bench, base, kRunUp, 35))
        co_return code;
    bench.StartMean();
    co_yield 0.5;
    double Measurement::*const shaft = turning::BestSpeed(bench.Mean(), settings);
    if (shaft == &Measurement::emfSpeed)
        co_return diagnosis::kNoFeedback;
    const double full = turning::MeanFlux(bench, shaft);
    if (!(full > 0) || turning::MeanField(bench) < turning::kFieldThere)
        co_return diagnosis::kFieldNotReached;

    // The response of the EMF to the field reference sets the EMF controller.
    bench.Phase(45, 2);
    bench.command.fieldCurrent = 0.8;
    co_yield 1.5;
    bench.StartMean();
    co_yield 0.3;
    const double before = turning::MeanFlux(bench, shaft);
    bench.command.fieldCurrent = 0.9;
    double started = bench.GetTime();
    const double goal = before + 0.632 * (full - before) / 2;
    double response = 0;
    do {
        bench.StartMean();
        co_yield 0.002;
        response = bench.GetTime() - started;
    } while (turning::MeanFlux(bench, shaft) < goal && response < 2);

    // The field current for each flux: the reference follows what the EMF still lacks.
    constexpr std::array<double, 3> kFlux = {0.9, 0.7, 0.4};
    std::array<double, 3> fields{};
    for (std::size_t i = 0; i < kFlux.size(); ++i) {
        bench.Phase(60 + 12.0 * static_cast<double>(i), 2);
        started = bench.GetTime();
        double reference = kFlux[i];
        for (int matches = 0; matches < kMatches;) {
            bench.command.fieldCurrent = std::clamp(reference, 0.02, 1.0);
            bench.StartMean();
            co_yield kWindow;
            if (bench.GetTime() - started > kPointTime)
                co_return diagnosis::kFluxCurve;
            fields[i] = turning::MeanField(bench);
            const double missing = kFlux[i] - turning::MeanFlux(bench, shaft) / full;
            const bool follows = std::abs(fields[i] - bench.command.fieldCurrent) < kFollows;
            matches = follows && std::abs(missing) < kFluxMatch ? matches + 1 : 0;
            if (follows)
                reference += 0.5 * missing;
        }
        co_yield 0.2; // added to the last window
        fields[i] = turning::MeanField(bench);
    }
    if (!(fields[2] > 0.02 && fields[1] > fields[2] && fields[0] > fields[1] && fields[0] < 1))
        co_return diagnosis::kFluxCurve;
    const CMonotoneCurve curve({{0, 0}, {0.4, fields[2]}, {0.7, fields[1]}, {0.9, fields[0]}, {1, 1}});
    if (curve(std::min(1.0, base / bench.GetSpeedLimit())) < settings.leastField)
        co_return diagnosis::kFieldLossLevel;

    bench.Phase(99, kRunUp);
    bench.command.fieldCurrent = 1;
    bench.RampSpeed(0, base / kRunUp);
    co_yield kRunUp;
    co_yield 0.5;

    // PI against the measured lag, the rest of the lags compensated by the modulus optimum; not faster than the
    // field, whose voltage is limited, can follow.
    const double rest = std::max(kEmfLag, response / 2);
    bench.SetResult(reg::kEmfGain, response / (2 * rest));
    bench.SetResult(reg::kEmfTime, std::max(1.0, response * 1000));
    bench.SetResult(reg::kField40, fields[2] * 100);
    bench.SetResult(reg::kField70, fields[1] * 100);
    bench.SetResult(reg::kField90, fields[0] * 100);
    co_return diagnosis::kNone;
}

} // namespace krt550
