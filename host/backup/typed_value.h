#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <optional>

namespace krt550 {

/// Raw word of what a person has typed or a file says: a text of the value list or the number of one of its values, or
/// a number within the limits (point or comma) that the parameter can hold as it stands: no more decimals than it has,
/// no separators of thousands, no exponent. Nothing, and the reason in `error`, when it is none of these.
std::optional<quint16> WordOfTyped(const ParameterDescription& parameter, const QString& text, QString& error);

} // namespace krt550
