#pragma once

#include "drive/service_run.h"
#include "drive/test_bench.h"

#include <cmath>

/// What the runs with a turning motor share.
namespace krt550::turning {

inline constexpr double kFieldThere = 0.9; ///< of rated field current
inline constexpr double kFieldTime = 8;    ///< it may take [s]
inline constexpr double kPatience = 3;     ///< a motor may be late by [s]

/// Field current of the last window, relative.
inline double MeanField(const CTestBench& bench) {
    return bench.Mean().fieldCurrent / bench.GetSettings().ratedFieldCurrent;
}

/// EMF per speed [V*s] of the last window: the flux constant as it is measured.
inline double MeanFlux(const CTestBench& bench) {
    const Measurement mean = bench.Mean();
    return (mean.armatureVoltage - bench.GetSettings().resistance * mean.armatureCurrent) / mean.speed;
}

/// Why a motor that should turn at `wanted` [rad/s] has not got there; 0 when it has, within `share` of it.
inline quint16 WhyNotAt(const CTestBench& bench, double wanted, double share) {
    const double speed = bench.Mean().speed;
    if (std::abs(speed - wanted) <= share * wanted)
        return diagnosis::kNone;
    const double little = 0.03 * bench.GetSettings().baseSpeed;
    if (std::abs(speed) < little)
        return diagnosis::kDoesNotTurn;
    return speed < 0 ? diagnosis::kWrongDirection : diagnosis::kSpeedNotReached;
}

/// Switches full field on and waits for it, the progress rising to `progress`.
inline CServiceRun FieldUp(CTestBench& bench, double progress) {
    bench.Phase(progress, 2);
    bench.command.field = FieldMode::Current;
    bench.command.fieldCurrent = 1;
    do {
        if (bench.GetTime() > kFieldTime)
            co_return diagnosis::kFieldNotReached;
        bench.StartMean();
        co_yield 0.1;
    } while (MeanField(bench) < kFieldThere);
    co_return diagnosis::kNone;
}

/// Runs up to `speed` [rad/s] in `time` [s] and waits until it is steady, the progress rising to `progress`.
inline CServiceRun RunUp(CTestBench& bench, double speed, double time, double progress) {
    bench.Phase(progress, time);
    bench.command.armature = ArmatureMode::Speed;
    bench.RampSpeed(speed, speed / time);
    co_yield time;
    const double started = bench.GetTime();
    do {
        bench.StartMean();
        co_yield 0.4;
    } while (WhyNotAt(bench, speed, 0.02) && bench.GetTime() - started < kPatience);
    co_return WhyNotAt(bench, speed, 0.1);
}

} // namespace krt550::turning
