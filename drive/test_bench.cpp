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
    const double even = 2 * double(m_random() - decltype(m_random)::min()) /
                            double(decltype(m_random)::max() - decltype(m_random)::min()) -
                        1;
    return value + range * kWidth * even;
}

bool CTestBench::Observe(double seconds, const MotorState& state, bool pulseOver) {
    m_time += seconds;
    m_now.armatureVoltage = Noisy(state.armatureVoltage, kNoise * m_settings.ratedVoltage);
    m_now.armatureCurrent = Noisy(state.armatureCurrent, kNoise * m_settings.ratedCurrent);
    m_now.fieldVoltage = Noisy(state.fieldVoltage, kNoise * m_settings.ratedFieldVoltage);
    m_now.fieldCurrent = Noisy(state.fieldCurrent, kNoise * m_settings.ratedFieldCurrent);
    m_now.speed = Noisy(state.speed, kSpeedNoise * m_settings.baseSpeed);
    m_sum.armatureVoltage += m_now.armatureVoltage;
    m_sum.armatureCurrent += m_now.armatureCurrent;
    m_sum.fieldVoltage += m_now.fieldVoltage;
    m_sum.fieldCurrent += m_now.fieldCurrent;
    m_sum.speed += m_now.speed;
    ++m_count;
    m_continuous = state.continuous;
    m_pulseOver = pulseOver;
    const double step = m_slope * seconds;
    command.speed += std::clamp(m_target - command.speed, -step, step);
    m_turning = std::abs(m_now.speed) > kTurns * m_settings.baseSpeed ? m_turning + seconds : 0;
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
    const double share = m_count ? 1.0 / m_count : 0;
    return {m_sum.armatureVoltage * share, m_sum.armatureCurrent * share, m_sum.fieldVoltage * share,
            m_sum.fieldCurrent * share, m_sum.speed * share};
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
