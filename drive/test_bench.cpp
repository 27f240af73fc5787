#include "drive/test_bench.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kNoise = 0.005;      ///< standard deviation of currents and voltages, of the rated value
constexpr double kSpeedNoise = 0.001; ///< of base speed
constexpr double kTurns = 0.01;       ///< faster than this the motor turns, of base speed
constexpr double kTurnsFor = 0.02;    ///< [s]

} // namespace

CTestBench::CTestBench(const DriveSettings& settings, double ideal, double peak, double frequency, double speedLimit)
    : m_settings(settings), m_ideal(ideal), m_peak(peak), m_frequency(frequency), m_speedLimit(speedLimit) {}

/// Evenly spread noise with the standard deviation `range`.
double CTestBench::Noisy(double value, double range) {
    constexpr double kWidth = 1.7320508; // half width of an even spread with deviation 1
    constexpr double kScale = 2 * kWidth / double(decltype(m_random)::max() - decltype(m_random)::min());
    return value + range * (kScale * double(m_random() - decltype(m_random)::min()) - kWidth);
}

bool CTestBench::Observe(double seconds, const MotorState& state, bool pulseOver) {
    m_time += seconds;
    const auto take = [this](double Measurement::*value, double actual, double noise) {
        m_now.*value = Noisy(actual, noise);
        m_sum.*value += m_now.*value;
    };
    const double speedNoise = kSpeedNoise * m_settings.baseSpeed;
    take(&Measurement::armatureVoltage, state.armatureVoltage, kNoise * m_settings.ratedVoltage);
    take(&Measurement::armatureCurrent, state.armatureCurrent, kNoise * m_settings.ratedCurrent);
    take(&Measurement::fieldVoltage, state.fieldVoltage, kNoise * m_settings.ratedFieldVoltage);
    take(&Measurement::fieldCurrent, state.fieldCurrent, kNoise * m_settings.ratedFieldCurrent);
    take(&Measurement::emf, state.emf, kNoise * m_settings.ratedVoltage);
    take(&Measurement::speed, state.signals.used, speedNoise);
    take(&Measurement::emfSpeed, state.signals.emf, speedNoise);
    take(&Measurement::encoderSpeed, state.signals.encoder, speedNoise);
    take(&Measurement::tachoSpeed, state.signals.tacho, speedNoise);
    ++m_count;
    m_continuous = state.continuous;
    m_pulseOver = pulseOver;
    const double step = m_slope * seconds;
    command.speed += std::clamp(m_target - command.speed, -step, step);
    // Without field the EMF tells nothing: whatever is mounted at the shaft is looked at.
    const double turns = std::max({std::abs(m_now.speed), std::abs(m_now.encoderSpeed), std::abs(m_now.tachoSpeed)});
    m_turning = turns > kTurns * m_settings.baseSpeed ? m_turning + seconds : 0;
    return !mustStand || m_turning < kTurnsFor;
}

void CTestBench::RampSpeed(double target, double slope) {
    m_target = target;
    m_slope = slope;
}

void CTestBench::StartMean() {
    m_sum = {};
    m_count = 0;
}

Measurement CTestBench::Mean() const {
    Measurement mean = m_sum;
    for (double* value : {&mean.armatureVoltage, &mean.armatureCurrent, &mean.fieldVoltage, &mean.fieldCurrent,
                          &mean.emf, &mean.speed, &mean.emfSpeed, &mean.encoderSpeed, &mean.tachoSpeed})
        *value *= m_count ? 1.0 / m_count : 0;
    return mean;
}

void CTestBench::Phase(double to, double seconds) {
    m_from = GetProgress();
    m_to = std::max(m_from, to);
    m_phaseStart = m_time;
    m_phaseTime = seconds;
}

int CTestBench::GetProgress() const {
    const double gone = 1 - std::exp(-2 * (m_time - m_phaseStart) / m_phaseTime);
    return static_cast<int>(m_from + (m_to - m_from) * gone);
}

} // namespace krt550
