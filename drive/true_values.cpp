#include "drive/true_values.h"

#include "drive/dc_motor.h"
#include "drive/registers.h"

namespace krt550 {
namespace {

double FluxAt(const MotorData& motor, double fieldCurrent) {
    return motor.magnetisation.IsEmpty() ? motor.mutualInductance * fieldCurrent : motor.magnetisation(fieldCurrent);
}

/// Field current [%] at a share of full flux, searched on the rising curve.
double FieldOf(double share, const MotorData& motor, double ratedFieldCurrent) {
    double low = 0;
    double high = ratedFieldCurrent;
    for (int i = 0; i < 50; ++i) {
        const double middle = (low + high) / 2;
        (FluxAt(motor, middle) < share * FluxAt(motor, ratedFieldCurrent) ? low : high) = middle;
    }
    return low / ratedFieldCurrent * 100;
}

} // namespace

std::optional<double> TrueValue(quint16 reg, const MotorData& motor, double ratedFieldCurrent) {
    switch (reg) {
    case reg::kArmatureResistance:
        return motor.armatureResistance * 1000;
    case reg::kArmatureInductance:
        return motor.armatureInductance * 1000;
    case reg::kCurrentTime:
        return motor.armatureInductance / motor.armatureResistance * 1000;
    case reg::kFieldTime:
        return motor.fieldInductance / motor.fieldResistance * 1000;
    case reg::kInertia:
        return motor.inertia;
    case reg::kField40:
        return FieldOf(0.4, motor, ratedFieldCurrent);
    case reg::kField70:
        return FieldOf(0.7, motor, ratedFieldCurrent);
    case reg::kField90:
        return FieldOf(0.9, motor, ratedFieldCurrent);
    default:
        return std::nullopt;
    }
}

} // namespace krt550
