#include "drive/motor_sets.h"

#include "drive/register_file.h"
#include "drive/registers.h"

#include <QStringList>

#include <cmath>

namespace krt550 {
namespace {

// Motors of public teaching libraries and course material. Where none is published, a Coulomb friction of half a
// percent of the rated torque lets the motor come to rest.
constexpr MotorSet kSets[] = {
    {"S1", "9.5 kW", 100, 100, 1425, 1, 100, 86, 133, 125, 16, 1, 0.05, 0.0015, 100, 1, 0.6366, 0.15, 0, 0.32},
    {"S2", "5 hp", 240,   21.2,  1750,  1.0664, 300,    205,     400,      25,
     16,   1,      2.581, 0.028, 281.3, 156,    0.9483, 0.02215, 0.002953, 0.5161},
    {"S3", "5 hp, heavy", 240, 16.2, 1222, 1, 240, 205, 320, 25, 16, 1, 0.6, 0.012, 240, 120, 1.8, 1.0, 0, 0.15},
    {"S5",   "60 V, hardly any inductance",
     60,     97,
     2865,   114.6,
     18.3,   52,
     25,     125,
     450,    4,
     0.016,  19e-6,
     0.16,   0.0054,
     0.0017, 0.0025,
     0,      0.1},
};
constexpr const MotorSet& kDefault = kSets[1];

constexpr double kOverspeed = 1.2;         ///< of base speed
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
    return data;
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
