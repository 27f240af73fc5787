#pragma once

#include "hostlib/export.h"
#include "hostlib/tolvbo32/parameter_description.h"

#include <optional>

namespace krt550 {

/// What keeps a typed text from being the value of a parameter. `Form`: it is no number as the parameter can hold it
/// (too many decimals, separated thousands, something behind the number).
enum class TypedFault { None, OutsideLimits, OutsideDataType, UnknownDataType, Form };

struct TypedValue {
    TypedFault fault = TypedFault::None;
    double number = 0; ///< that the text begins with; 0 when there is none
};

/// Checks a typed text against the limits of a parameter or, when both are 0, its data type, and then its form. Any
/// text is good for a value list, an empty one counts as 0; point and comma are the same.
HOSTLIB_EXPORT TypedValue CheckTypedText(const ParameterDescription& parameter, const QString& typed);

/// How a value of so many decimals is to be typed, as a sentence.
HOSTLIB_EXPORT QString TypedFormHint(int decimals);

/// Raw word of a typed text that passes both CheckTypedText and WordOfText; of a bit word also "31h", "0x31" and
/// "0b110001". Nothing when it is refused, with the reason in `error`.
HOSTLIB_EXPORT std::optional<quint16> WordOfTypedText(const ParameterDescription& parameter, const QString& typed,
                                                      QString& error);

} // namespace krt550
