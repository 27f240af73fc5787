#include "drive/motor_sets.h"

#include "drive/register_file.h"
#include "drive/registers.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace krt550 {
namespace {

// Motors of public teaching libraries and course material, each behind the smallest usual mains voltage that lets it
// brake: the armature voltage is at most 1.05 of it. Where no friction is published, 3 % of the rated torque.
constexpr MotorSet kSets[] = {
    {"S1", "9.5 kW", 100, 100, 1425, 1, 100, 96, 133, 125, 16, 1, 0.05, 0.0015, 100, 1, 0.6366, 0.15, 0, 1.9},
    {"S2", "5 hp", 240,   21.2,  1750,  1.0664, 300,    230,     400,      25,
     16,   1,      2.581, 0.028, 281.3, 156,    0.9483, 0.02215, 0.002953, 0.5161},
    {"S3", "5 hp, heavy", 240, 16.2, 1222, 1, 240, 230, 320, 25, 16, 1, 0.6, 0.012, 240, 120, 1.8, 1.0, 0, 0.87},
    {"S5",   "60 V, hardly any inductance",
     60,     97,
     2865,   114.6,
     18.3,   58,
     25,     125,
     450,    4,
     0.016,  19e-6,
     0.16,   0.0054,
     0.0017, 0.0025,
     0,      0.57},
};
constexpr const MotorSet& kDefault = kSets[1];

constexpr double kRemanence = 0.02;      ///< of full flux
constexpr double kRemanenceField = 0.15; ///< that wipes it out, of rated field current
constexpr double kShortCircuit = 0.04; ///< voltage of the line chokes at the converter's nominal current, of the mains
constexpr double kOverspeed = 1.2;     ///< of base speed
constexpr double kConverterOverload = 2.3; ///< of its nominal current

} // namespace

std::span<const MotorSet> MotorSets() {
    return kSets;
}

const MotorSet* FindMotorSet(const QString& name) {
    for (const MotorSet& set : kSets)
        if (name.compare(QLatin1String(set.name), Qt::CaseInsensitive) == 0)
            return &set;
    return nullptr;
}

const MotorSet& DefaultMotorSet() {
    return kDefault;
}

QString MotorSetNames() {
    QStringList names;
    for (const MotorSet& set : kSets)
        names.append(QLatin1String(set.name));
    return names.join(QLatin1String(", "));
}

MotorData DataOf(const MotorSet& set) {
    MotorData data;
    data.armatureResistance = set.ra;
    data.armatureInductance = set.la;
    data.fieldResistance = set.rf;
    data.fieldInductance = set.lf;
    data.mutualInductance = set.laf;
    data.inertia = set.inertia;
    data.viscousFriction = set.viscous;
    data.coulombFriction = set.coulomb;
    data.remanence = kRemanence * set.laf * set.fieldCurrent;
    data.remanenceField = kRemanenceField * set.fieldCurrent;
    return data;
}

void FitSupply(MotorSet& motor) {
    constexpr double kConverters[] = {25, 50, 75, 125, 200, 350, 500, 700, 1000, 1500, 2000, 3000, 4500};
    const auto* const fits = std::ranges::lower_bound(kConverters, 1.5 * motor.current);
    motor.converterCurrent = fits == std::end(kConverters) ? kConverters[std::size(kConverters) - 1] : *fits;
    motor.mains = std::ceil(motor.voltage / 1.05);
    motor.fieldSupply = std::ceil(1.33 * motor.fieldVoltage / 0.9);
    const struct {
        double current;
        quint16 type;
    } exciters[] = {{16, 1}, {35, 2}, {50, 3}, {450, 4}};
    for (const auto& [current, type] : exciters) {
        motor.exciterCurrent = current;
        motor.exciterType = type;
        if (current >= motor.fieldCurrent)
            break;
    }
}

double LineInductanceOf(const MotorSet& set) {
    const double lineCurrent = std::sqrt(2.0 / 3) * set.converterCurrent;
    return kShortCircuit * set.mains / std::sqrt(3.0) / lineCurrent / (100 * std::numbers::pi);
}

void ApplyNamePlate(const MotorSet& set, CRegisterFile& registers) {
    const std::pair<quint16, double> numbers[] = {
        {reg::kRatedVoltage, set.voltage},
        {reg::kRatedCurrent, set.current},
        {reg::kBaseSpeed, set.baseSpeed},
        {reg::kRatedFieldVoltage, set.fieldVoltage},
        {reg::kRatedMains, set.mains},
        {reg::kMainsVoltage, set.mains},
        {reg::kRatedFieldCurrent, set.fieldCurrent},
        {reg::kExciterUsed, set.exciterType},
        {reg::kExciterFound, set.exciterType},
        {reg::kFieldSupply, set.fieldSupply},
        {reg::kConverterCurrent, set.converterCurrent},
        {reg::kConverterOvercurrent, set.converterCurrent * kConverterOverload},
        {reg::kExciterCurrent, set.exciterCurrent},
        {reg::kSpeedMinimum, -set.baseSpeed},
        {reg::kSpeedMaximum, set.baseSpeed},
        {reg::kSpeedScaling, set.baseSpeed},
        {reg::kSpeedThreshold1, std::round(set.baseSpeed / 2)},
        {reg::kSpeedThreshold2, set.baseSpeed},
        {reg::kOverspeed, std::round(set.baseSpeed * kOverspeed)},
    };
    for (const auto& [reg, number] : numbers)
        registers.SetNumber(reg, number);
}

} // namespace krt550
