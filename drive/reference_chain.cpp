#include "drive/reference_chain.h"

#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>

namespace krt550 {

void CReferenceChain::Read(const CRegisterFile& registers, double baseSpeed) {
    constexpr double kDefaultTime = 20; // [s]
    m_high = registers.GetNumber(reg::kSpeedMaximum, baseSpeed);
    m_low = registers.GetNumber(reg::kSpeedMinimum, -baseSpeed);
    constexpr std::pair<quint16, quint16> kTimes[] = {
        {reg::kRampUp, reg::kRampDown}, {reg::kRamp2Up, reg::kRamp2Down}, {reg::kJogUp, reg::kJogDown}};
    for (std::size_t i = 0; i < m_slopes.size(); ++i)
        m_slopes[i] = {RampSlope(baseSpeed, registers.GetNumber(kTimes[i].first, kDefaultTime)),
                       RampSlope(baseSpeed, registers.GetNumber(kTimes[i].second, kDefaultTime))};
    m_slopeQuick = RampSlope(baseSpeed, registers.GetNumber(reg::kQuickStopRamp, kDefaultTime));
}

double CReferenceChain::Limit(double reference) const {
    return std::min(m_high, std::max(m_low, reference)); // crossed limits: the upper one counts
}

void CReferenceChain::Step(double seconds, RampMode mode, double target) {
    const double goal = mode == RampMode::Follow ? target : 0;
    if (mode == RampMode::Zero)
        m_ramp.Preset(0);
    else if (mode != RampMode::Hold)
        m_ramp.Step(seconds, goal, {m_slopes[m_set].up, mode == RampMode::Quick ? m_slopeQuick : m_slopes[m_set].down});
}

} // namespace krt550
