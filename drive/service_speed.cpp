// Service run 4: the inertia by accelerating and decelerating through the same speed.
#include "drive/registers.h"
#include "drive/service_runs.h"
#include "drive/service_turning.h"
#include "drive/tuning_rules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kCurrent = 0.8;       ///< for the acceleration, of rated current
constexpr double kBrake = 0.6;         ///< for the deceleration
constexpr double kLeastCurrent = 0.15; ///< a current limit below this moves nothing
constexpr double kSlowEnd = 0.35;      ///< the motor swings between these speeds, of base speed
constexpr double kFastEnd = 0.85;
constexpr double kWindowLow = 0.5; ///< and is measured between these
constexpr double kWindowHigh = 0.75;
constexpr double kRunUp = 3; ///< to the first speed [s]
constexpr int kRepeats = 3;
constexpr double kSpread = 0.1;    ///< between the repeats, of the mean
constexpr double kMostGain = 650;  ///< that 24.03 can hold
constexpr double kMostTime = 6500; ///< that 24.09 can hold [ms]
constexpr double kSwing = 30;      ///< one way may take [s]

/// Slope of a straight line through measured speeds, and the mean current with it.
class CSlope {
public:
    void Add(double time, double speed, double current) {
        ++m_count;
        m_time += time;
        m_speed += speed;
        m_current += current;
        m_square += time * time;
        m_product += time * speed;
    }
    bool IsUsable() const { return m_count >= 20; }
    double GetSlope() const {
        return (m_count * m_product - m_time * m_speed) / (m_count * m_square - m_time * m_time);
    }
    double GetCurrent() const { return m_current / m_count; }

private:
    int m_count = 0;
    double m_time = 0;
    double m_speed = 0;
    double m_current = 0;
    double m_square = 0;
    double m_product = 0;
};

} // namespace

CServiceRun RunSpeed(CTestBench& bench) {
    const DriveSettings& settings = bench.GetSettings();
    const double rated = settings.ratedCurrent;
    const double base = settings.baseSpeed;
    if (bench.GetSpeedLimit() < 0.99 * base)
        co_return diagnosis::kSpeedLimits;
    const double drive = std::min({settings.currentHigh, settings.torqueHigh * rated, kCurrent * rated});
    // A drive with one bridge coasts instead.
    const double brake = std::max({settings.currentLow, settings.torqueLow * rated, -kBrake * rated});
    if (drive < kLeastCurrent * rated)
        co_return diagnosis::kLimitTooLow;

    if (const quint16 code = co_await turning::FieldUp(bench, 10))
        co_return code;
    // A steady speed gives the flux constant.
    if (const quint16 code = co_await turning::RunUp(bench, kWindowHigh * base, kRunUp, 30))
        co_return code;
    bench.StartMean();
    co_yield 0.5;
    double Measurement::*const shaft = turning::BestSpeed(bench.Mean(), settings);
    const double flux = turning::MeanFlux(bench, shaft);
    if (!(flux > 0))
        co_return diagnosis::kWrongDirection;

    std::array<double, kRepeats> inertias{};
    bench.command.armature = ArmatureMode::Current;
    for (int i = 0; i < kRepeats; ++i) {
        bench.Phase(45 + 20 * i, 4);
        // Slow down first, then up and down through the same speeds.
        CSlope slopes[2];
        for (int way = -1; way < 2; ++way) {
            const bool up = way == 0;
            bench.command.current = up ? drive : brake;
            const double start = bench.GetTime();
            while (up ? bench.Now().*shaft < kFastEnd * base : bench.Now().*shaft > kSlowEnd * base) {
                const double speed = bench.Now().*shaft / base;
                if (way >= 0 && speed > kWindowLow && speed < kWindowHigh)
                    slopes[way].Add(bench.GetTime() - start, bench.Now().*shaft, bench.Now().armatureCurrent);
                if (bench.GetTime() - start > kSwing)
                    co_return up ? diagnosis::kSpeedNotReached : diagnosis::kLoadNotSteady;
                co_yield 0;
            }
        }
        // Friction and load are the same both ways: J = k*(I1 - I2)/(dw1/dt - dw2/dt).
        const double difference = slopes[0].GetSlope() - slopes[1].GetSlope();
        if (!slopes[0].IsUsable() || !slopes[1].IsUsable() || !(difference > 0))
            co_return diagnosis::kLoadNotSteady;
        inertias[static_cast<std::size_t>(i)] = flux * (slopes[0].GetCurrent() - slopes[1].GetCurrent()) / difference;
    }
    const auto [least, most] = std::ranges::minmax(inertias);
    const double inertia = (inertias[0] + inertias[1] + inertias[2]) / kRepeats;
    if (!(least > 0) || most - least > kSpread * inertia)
        co_return diagnosis::kLoadNotSteady;

    bench.Phase(99, 2);
    bench.command.speed = kSlowEnd * base;
    bench.command.armature = ArmatureMode::Speed;
    bench.RampSpeed(0, kSlowEnd * base / 2);
    co_yield 2.5;

    const PiSetting speed = SymmetricalOptimum(inertia, settings.SmallLags());
    const double unit = flux * rated / base; // [N*m*s]
    // Where the gain's register ends, the same damping takes an integral time longer by the square of what is missing.
    const double missing = std::max(1.0, speed.gain / unit / kMostGain);
    bench.SetResult(reg::kSpeedGain, speed.gain / unit / missing);
    bench.SetResult(reg::kSpeedTime, std::min(kMostTime, speed.time * missing * missing * 1000));
    bench.SetResult(reg::kInertia, inertia);
    co_return diagnosis::kNone;
}

} // namespace krt550
