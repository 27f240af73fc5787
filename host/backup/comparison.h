#pragma once

#include "host/backup/parameter_values.h"

#include <QStringList>

namespace krt550 {

/// A register that two sides do not agree about; a side without a value does not have the register.
struct ValueChange {
    quint16 reg = 0;
    std::optional<quint16> from;
    std::optional<quint16> to;
};

/// What differs, by register. A register whose value one side could not read is left out: nothing is known of it.
std::vector<ValueChange> Compare(const ParameterValues& from, const ParameterValues& to);

/// "99.02 Motor 1 nominal voltage: 250 V -> 240 V".
QString ChangeText(const ValueChange& change, std::span<const ParameterDescription> parameters);

/// "30.16 Motor 1 overspeed".
QString DisplayName(quint16 reg, std::span<const ParameterDescription> parameters);

} // namespace krt550
