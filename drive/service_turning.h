#pragma once

#include "drive/service_run.h"
#include "drive/test_bench.h"

#include <cmath>

/// What the runs with a turning motor share.
namespace krt550::turning {

inline constexpr double kFieldThere = 0.9;   ///< of rated field current
inline constexpr double kFieldTime = 8;      ///< it may take when it does not rise [s]
inline constexpr double kFieldRises = 0.005; ///< of rated field current in a tenth of a second
inline constexpr double kSlowestField = 40;  ///< [s]
inline constexpr double kPatience = 3;       ///< a motor may be late by [s]

/// Field current of the last window, relative.
inline double MeanField(const CTestBench& bench) {
    return bench.Mean().fieldCurrent / bench.GetSettings().ratedFieldCurrent;
}

/// Whichever speed tells most about the shaft: the chosen feedback; on EMF feedback a mounted encoder or tacho that
/// agrees with it. The EMF itself cannot tell a wrong name plate or a saturated field from a speed.
inline double Measurement::*BestSpeed(const Measurement& mean, const DriveSettings& settings) {
    constexpr double kAgrees = 0.2;
    if (settings.speedSource != SpeedSource::Emf)
        return &Measurement::speed;
    for (double Measurement::*device : {&Measurement::encoderSpeed, &Measurement::tachoSpeed})
        if (std::abs(mean.*device / mean.emfSpeed - 1) < kAgrees)
            return device;
    return &Measurement::emfSpeed;
}

/// EMF per speed [V*s] of the last window: the flux constant as it is measured.
inline double MeanFlux(const CTestBench& bench, double Measurement::*speed) {
    const Measurement mean = bench.Mean();
    return mean.emf / (mean.*speed);
}

/// Why a motor that should turn at `wanted` [rad/s] has not got there; 0 when it has, within `share` of it.
inline quint16 WhyNotAt(const CTestBench& bench, double wanted, double share) {
    const double speed = bench.Mean().speed;
    if (std::abs(speed - wanted) <= share * wanted)
        return diagnosis::kNone;
    // A wrong guess of the armature resistance makes a standing motor under full current look as if it crept.
    const DriveSettings& settings = bench.GetSettings();
    const bool guess = settings.speedSource == SpeedSource::Emf && !settings.resistanceKnown;
    const double little = (guess ? 0.15 : 0.03) * settings.baseSpeed;
    if (std::abs(speed) < little)
        return diagnosis::kDoesNotTurn;
    return speed < 0 ? diagnosis::kWrongDirection : diagnosis::kSpeedNotReached;
}

/// Switches full field on and waits for it, for as long as it takes while it rises, the progress rising to `progress`.
inline CServiceRun FieldUp(CTestBench& bench, double progress) {
    bench.Phase(progress, 2);
    bench.command.field = FieldMode::Current;
    bench.command.fieldCurrent = 1;
    double field = 0;
    double former = 0;
    do {
        const bool rises = field - former > kFieldRises;
        if (bench.GetTime() > (rises ? kSlowestField : kFieldTime))
            co_return diagnosis::kFieldNotReached;
        former = field;
        bench.StartMean();
        co_yield 0.1;
        field = MeanField(bench);
    } while (field < kFieldThere);
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
