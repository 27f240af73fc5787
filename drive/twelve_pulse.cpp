#include "drive/twelve_pulse.h"

#include "drive/drive_settings.h"
#include "drive/fault_codes.h"
#include "drive/motor_control.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace krt550 {
namespace {

constexpr quint16 kMaster = 2;   // 43.01
constexpr quint16 kSlave = 3;    // 43.01
constexpr quint16 kParallel = 1; // 47.01; beyond it the ways in series

/// Adds up while something lasts; true once it has lasted longer than the milliseconds in `reg`.
bool LastsTooLong(double& lasted, bool lasts, double seconds, quint16 reg, const CRegisterFile& registers) {
    lasted = lasts ? lasted + seconds : 0;
    return lasted > registers.GetNumber(reg, 0) / 1000;
}

} // namespace

quint16 CTwelvePulse::Step(double seconds, bool on, const MotorState& state, const DriveSettings& settings,
                           CRegisterFile& registers) {
    const quint16 mode = registers.GetWord(reg::kTwelvePulseMode);
    const quint16 role = registers.GetWord(reg::kConverterRole);
    const bool used = mode != 0 && (role == kMaster || role == kSlave);
    m_answers = used && role == kMaster && Answers(registers);
    const bool conducts = state.bridge != 0;
    if (conducts && !m_slave.bridgeStays)
        m_slaveBridge = state.bridge;
    const bool sameBridge = !conducts || m_slaveBridge == state.bridge;
    const double difference = m_answers ? Difference(state, settings, sameBridge, registers) : 0;
    if (!m_answers)
        registers.SetNumber(reg::kSlaveCurrent, 0);
    registers.SetNumber(reg::kCurrentDifference, difference * 100);

    const bool wired = (mode == kParallel) == (m_slave.wiring == SlaveWiring::Parallel);
    const bool unequal = std::abs(difference) * 100 > registers.GetNumber(reg::kDifferenceLevel, 100);
    const bool flows =
        used && state.currentReference * state.bridge < 0 && std::abs(state.armatureCurrent) > settings.zeroCurrent;
    const bool silent = LastsTooLong(m_silent, used && on && !m_answers, seconds, reg::kSlaveTimeout, registers);
    const std::pair<bool, quint16> trips[] = {
        {silent && registers.GetWord(reg::kSlaveTimeout) > 0, kFaultSlave},
        {m_answers && conducts && !wired, kFaultSlaveWiring},
        {LastsTooLong(m_reversing, m_answers && !sameBridge, seconds, reg::kSlaveReversalTime, registers),
         kFaultSlaveBridge},
        {LastsTooLong(m_flowing, flows, seconds, reg::kZeroCurrentTime, registers), kFaultZeroCurrent},
        {LastsTooLong(m_unequal, unequal, seconds, reg::kDifferenceDelay, registers), kFaultSharing},
    };
    const auto* const trip = std::ranges::find(trips, true, &std::pair<bool, quint16>::first);
    return trip == std::end(trips) ? quint16{0} : trip->second;
}

bool CTwelvePulse::Answers(const CRegisterFile& registers) const {
    const quint16 wanted = registers.GetWord(reg::kSlaveNode);
    return m_slave.wiring != SlaveWiring::None && !m_slave.lost && wanted == m_slave.node &&
           wanted != registers.GetWord(reg::kConverterNode);
}

/// Current of the master, as measured, less that of the slave, relative to nominal current.
double CTwelvePulse::Difference(const MotorState& state, const DriveSettings& settings, bool sameBridge,
                                CRegisterFile& registers) {
    const double total = state.armatureCurrent / settings.ratedCurrent;
    const bool parallel = m_slave.wiring == SlaveWiring::Parallel;
    const double slave = !sameBridge ? 0 : parallel ? total / 2 * (1 - m_slave.weakness) : total;
    const double master = parallel ? total - slave : total;
    registers.SetNumber(reg::kSlaveCurrent, slave * 100);
    return master * registers.GetNumber(reg::kCurrentAdjust, 100) / 100 - slave;
}

} // namespace krt550
