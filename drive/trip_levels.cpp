#include "drive/trip_levels.h"

#include "drive/drive_settings.h"
#include "drive/register_file.h"
#include "drive/registers.h"

#include <algorithm>
#include <limits>
#include <numbers>

namespace krt550 {

TripLevels ReadTripLevels(const CRegisterFile& registers, const DriveSettings& settings) {
    constexpr double kPerRpm = std::numbers::pi / 30;
    const auto number = [&registers](quint16 reg, double fallback) { return registers.GetNumber(reg, fallback); };
    const auto share = [&number](quint16 reg, double percent) { return number(reg, percent) / 100; };
    const auto time = [&number](quint16 reg, double milliseconds) { return number(reg, milliseconds) / 1000; };
    TripLevels levels;
    const double converter = number(reg::kConverterOvercurrent, std::numeric_limits<double>::infinity());
    levels.current = std::min(converter, share(reg::kOvercurrentLevel, 230) * settings.ratedCurrent);
    levels.currentRise = share(reg::kCurrentRise, 0) * settings.ratedCurrent * 1000;
    levels.voltage = share(reg::kOvervoltageLevel, 120) * settings.ratedVoltage;
    levels.mains = share(reg::kMainsTripLevel, 60) * settings.ratedMains;
    levels.mainsAlarm = share(reg::kMainsAlarmLevel, 80) * settings.ratedMains;
    levels.longestGap = registers.GetWord(reg::kMainsReaction) == 1 ? time(reg::kLongestMainsLoss, 500) : 0;
    levels.field = settings.leastField;
    levels.fieldMost = share(reg::kFieldOvercurrent, 125);
    levels.fieldDelay = time(reg::kFieldLossDelay, 200);
    levels.fieldMask = time(reg::kFieldMaskTime, 2000);
    const double speed = number(reg::kOverspeed, 0) * kPerRpm;
    levels.speed = speed > 0 ? speed : 2 * settings.baseSpeed;
    const bool supervised = registers.GetWord(reg::kFeedbackReaction) != 0;
    levels.feedback = number(reg::kFeedbackLevel, 15) * kPerRpm;
    levels.feedbackEmf = supervised ? number(reg::kFeedbackEmf, 50) : 0;
    levels.stallTime = number(reg::kStallTime, 0);
    levels.stallSpeed = number(reg::kStallSpeed, 10) * kPerRpm;
    levels.stallTorque = share(reg::kStallTorque, 75);
    levels.earth = static_cast<Reaction>(registers.GetWord(reg::kEarthReaction, 1));
    levels.earthCurrent = share(reg::kEarthLevel, 4);
    levels.earthDelay = time(reg::kEarthDelay, 10);
    const quint16 model = registers.GetWord(reg::kThermalModel);
    levels.thermal = model != 0;
    levels.ownFan = model == 1;
    levels.thermalTime = number(reg::kThermalTime, 240);
    levels.thermalAlarm = share(reg::kThermalAlarmLevel, 102);
    levels.thermalRise = share(reg::kThermalTripLevel, 106);
    return levels;
}

} // namespace krt550
