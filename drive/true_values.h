#pragma once

#include <QtGlobal>

#include <optional>

namespace krt550 {

struct MotorData;

/// What the drive would show in `reg` if it knew the motor as it is, in the register's shown unit; nothing for a
/// register that is not about the motor. `ratedFieldCurrent` [A] is what full flux belongs to.
std::optional<double> TrueValue(quint16 reg, const MotorData& motor, double ratedFieldCurrent);

} // namespace krt550
