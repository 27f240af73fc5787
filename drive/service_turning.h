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

} // namespace krt550::turning
