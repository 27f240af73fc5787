#include "drive/protection.h"

#include "drive/drive_settings.h"
#include "drive/fault_codes.h"
#include "drive/motor_control.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace krt550 {

TripLevels ReadTripLevels(const CRegisterFile& registers, const DriveSettings& settings) {
    const auto number = [&registers](quint16 reg, double fallback) { return registers.GetNumber(reg, fallback); };
    TripLevels levels;
    const double converter = number(reg::kConverterOvercurrent, std::numeric_limits<double>::infinity());
    levels.current = std::min(converter, number(reg::kOvercurrentLevel, 230) / 100 * settings.ratedCurrent);
    levels.voltage = number(reg::kOvervoltageLevel, 120) / 100 * settings.ratedVoltage;
    levels.mains = number(reg::kMainsTripLevel, 60) / 100 * settings.ratedMains;
    levels.field = settings.leastField;
    levels.fieldDelay = number(reg::kFieldLossDelay, 200) / 1000;
    levels.fieldMask = number(reg::kFieldMaskTime, 2000) / 1000;
    const double speed = registers.GetNumber(reg::kOverspeed, 0) * std::numbers::pi / 30;
    levels.speed = speed > 0 ? speed : 2 * settings.baseSpeed;
    const bool supervised = registers.GetWord(reg::kFeedbackReaction) != 0;
    levels.feedback = number(reg::kFeedbackLevel, 15) * std::numbers::pi / 30;
    levels.feedbackEmf = supervised ? number(reg::kFeedbackEmf, 50) : 0;
    levels.thermal = registers.GetWord(reg::kThermalModel) != 0;
    levels.thermalTime = number(reg::kThermalTime, 240);
    levels.thermalRise = number(reg::kThermalTripLevel, 106) / 100;
    return levels;
}

quint16 CProtection::Step(double seconds, const MotorState& state, const Surroundings& around,
                          const DriveSettings& settings, const TripLevels& levels) {
    const double load = state.armatureCurrent / settings.ratedCurrent;
    CLag rise;
    rise.Preset(m_rise);
    m_rise = rise.Step(load * load, seconds, levels.thermalTime);
    const bool fieldLost = IsFieldLost(seconds, state, around, settings, levels);
    constexpr double kFeedbackDelay = 0.05;
    const bool silent = around.feedbackUsed && levels.feedbackEmf > 0 && std::abs(state.emf) > levels.feedbackEmf &&
                        std::abs(state.signals.used) < levels.feedback;
    m_feedbackMissing = silent ? m_feedbackMissing + seconds : 0;
    const struct {
        bool now;
        quint16 code;
    } trips[] = {
        {m_feedbackMissing > kFeedbackDelay, kFaultFeedback},
        {std::abs(state.armatureCurrent) > levels.current, kFaultOvercurrent},
        {around.driving && std::abs(state.armatureVoltage) > levels.voltage, kFaultOvervoltage},
        {around.driving && around.mains < levels.mains, kFaultMains},
        {fieldLost, kFaultFieldLoss},
        {std::abs(state.signals.used) > levels.speed, kFaultOverspeed},
        {levels.thermal && m_rise > levels.thermalRise, kFaultOvertemperature},
    };
    for (const auto& trip : trips)
        if (trip.now)
            return trip.code;
    return 0;
}

bool CProtection::IsFieldLost(double seconds, const MotorState& state, const Surroundings& around,
                              const DriveSettings& settings, const TripLevels& levels) {
    const double least = std::min(levels.field, 0.8 * around.fieldReference) * settings.ratedFieldCurrent;
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
    if (!missing) {
        // What is left of the field from before counts when it has been brought up again.
        constexpr double kReached = 0.9;
        const double reached = kReached * around.fieldReference * settings.ratedFieldCurrent;
        m_fieldWasThere = m_fieldWasThere || m_formerField >= reached;
        m_fieldMissing = 0;
        return false;
    }
    m_fieldMissing += seconds;
    return m_fieldMissing > (m_fieldWasThere ? levels.fieldDelay : levels.fieldMask);
}

void CProtection::Rest(double seconds, const TripLevels& levels) {
    m_rise *= levels.thermalTime > 0 ? std::exp(-seconds / levels.thermalTime) : 0;
    m_fieldMissing = 0;
    m_fieldWasThere = false;
}

} // namespace krt550
