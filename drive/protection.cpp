#include "drive/protection.h"

#include "drive/drive_settings.h"
#include "drive/fault_codes.h"
#include "drive/motor_control.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace krt550 {
namespace {

constexpr double kFeedbackDelay = 0.05; ///< [s]
constexpr double kRippleDelay = 0.2;    ///< [s]
constexpr double kRippleCurrent = 0.1;  ///< missing pulses show from here on, of rated current

/// Adds up while something lasts.
double Lasting(double so_far, bool lasts, double seconds) {
    return lasts ? so_far + seconds : 0;
}

} // namespace

Findings CProtection::Step(double seconds, const MotorState& state, const Surroundings& around,
                           const DriveSettings& settings, const TripLevels& levels) {
    Heat(seconds, state, settings, levels);
    const double current = std::abs(state.armatureCurrent);
    const double rise = (current - std::exchange(m_current, current)) / seconds;
    const bool silent = around.feedbackUsed && levels.feedbackEmf > 0 && std::abs(state.emf) > levels.feedbackEmf &&
                        std::abs(state.signals.used) < levels.feedback;
    m_feedbackMissing = Lasting(m_feedbackMissing, silent, seconds);
    m_leaking = Lasting(m_leaking, around.driving && around.earthCurrent > levels.earthCurrent, seconds);
    m_rippling = Lasting(m_rippling, around.branchLost && current > kRippleCurrent * settings.ratedCurrent, seconds);
    m_mainsGap = Lasting(m_mainsGap, around.driving && around.mains < levels.mains, seconds);
    const bool leaks = m_leaking > 0 && m_leaking >= levels.earthDelay;
    const bool hot = levels.thermal && m_rise > levels.thermalRise;
    Findings found;
    const auto look = [&found](bool now, quint16 code, Reaction reaction = Reaction::Trip) {
        if (now)
            found.Add(code, reaction);
    };
    look(m_feedbackMissing > kFeedbackDelay, kFaultFeedback);
    look(current > levels.current, kFaultOvercurrent);
    look(levels.currentRise > 0 && rise > levels.currentRise, kFaultCurrentRise);
    look(around.driving && std::abs(state.armatureVoltage) > levels.voltage, kFaultOvervoltage);
    look(m_mainsGap > levels.longestGap, kFaultMains);
    look(around.driving && around.phaseMissing, kFaultPhaseMissing);
    look(around.driving && around.phaseOrderWrong, kFaultPhaseOrder);
    look(m_rippling > kRippleDelay, kFaultRipple);
    look(IsFieldLost(seconds, state, around, settings, levels), kFaultFieldLoss);
    look(std::abs(state.fieldCurrent) > levels.fieldMost * settings.ratedFieldCurrent, kFaultFieldOvercurrent);
    look(std::abs(state.signals.used) > levels.speed, kFaultOverspeed);
    look(IsStalled(seconds, state, settings, levels), kFaultStall);
    look(leaks, kFaultEarth, levels.earth);
    look(hot, kFaultOvertemperature);
    look(levels.thermal && m_rise > levels.thermalAlarm, kFaultOvertemperature, Reaction::Alarm);
    look(around.driving && around.mains < levels.mainsAlarm, kFaultMains, Reaction::Alarm);
    return found;
}

/// A motor with its fan on its shaft cools less the slower it turns: at standstill 40 %, all of it from half base speed
/// on.
void CProtection::Heat(double seconds, const MotorState& state, const DriveSettings& settings,
                       const TripLevels& levels) {
    constexpr double kStill = 0.15;
    const double speed = std::min(1.0, 2 * std::abs(state.signals.used) / settings.baseSpeed);
    const double cooling = levels.ownFan ? kStill + (1 - kStill) * speed : 1;
    const double load = state.armatureCurrent / settings.ratedCurrent;
    const double share = levels.thermalTime > seconds ? seconds / levels.thermalTime : 1;
    m_rise += (load * load - cooling * m_rise) * share;
}

bool CProtection::IsStalled(double seconds, const MotorState& state, const DriveSettings& settings,
                            const TripLevels& levels) {
    const double torque = state.flux * std::abs(state.armatureCurrent) / settings.ratedCurrent;
    const bool stands = std::abs(state.signals.used) < levels.stallSpeed && torque >= levels.stallTorque;
    m_stalled = Lasting(m_stalled, levels.stallTime > 0 && stands, seconds);
    return m_stalled > 0 && m_stalled >= levels.stallTime;
}

bool CProtection::IsFieldLost(double seconds, const MotorState& state, const Surroundings& around,
                              const DriveSettings& settings, const TripLevels& levels) {
    const double wanted = std::abs(around.fieldReference);
    const double least = std::min(levels.field, 0.8 * wanted) * settings.ratedFieldCurrent;
    // A slow field that still comes up is not lost, however long it takes.
    constexpr double kRises = 0.02; // of rated field current a second
    const double former = std::exchange(m_formerField, std::abs(state.fieldCurrent));
    const bool rises = m_formerField - former > kRises * settings.ratedFieldCurrent * seconds;
    const bool missing = m_formerField < least && !rises;
    if (!around.fieldNeeded) {
        m_fieldWasThere = false;
        m_fieldMissing = 0;
        return false;
    }
    // A field on its way through zero is built up anew.
    if (state.fieldCurrent * around.fieldReference < 0)
        m_fieldWasThere = false;
    if (!missing) {
        // What is left of the field from before counts when it has been brought up again.
        constexpr double kReached = 0.9;
        const double reached = kReached * wanted * settings.ratedFieldCurrent;
        m_fieldWasThere = m_fieldWasThere || m_formerField >= reached;
        m_fieldMissing = 0;
        return false;
    }
    m_fieldMissing += seconds;
    return m_fieldMissing > (m_fieldWasThere ? levels.fieldDelay : levels.fieldMask);
}

void CProtection::Rest(double seconds, const TripLevels& levels) {
    m_rise *= levels.thermalTime > 0 ? std::exp(-seconds / levels.thermalTime) : 0;
    m_fieldMissing = m_mainsGap = m_stalled = m_leaking = m_rippling = 0;
    m_fieldWasThere = false;
}

} // namespace krt550
