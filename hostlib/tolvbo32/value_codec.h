#pragma once

#include "hostlib/export.h"
#include "hostlib/tolvbo32/parameter_description.h"

#include <optional>

namespace krt550 {

struct ValueRange {
    double low;
    double high;
};

/// Raw numbers that a data type can carry.
HOSTLIB_EXPORT ValueRange RawRange(DataType type);

/// Smallest and largest value in shown units: the limits or, without any, what the data type can carry.
HOSTLIB_EXPORT ValueRange ShownRange(const ParameterDescription& parameter);

/// Says that a value (its text) lies outside ShownRange, and names both ends.
HOSTLIB_EXPORT QString OutOfRangeText(const ParameterDescription& parameter, const QString& value);

/// The conversions between raw words and what people read and type. Each returns nothing when it refuses and
/// then puts the reason into `error`.

/// "99.06" for 9906.
HOSTLIB_EXPORT QString RegisterText(quint16 reg);

/// Number that a raw word stands for, in shown units.
HOSTLIB_EXPORT double ShownNumber(const ParameterDescription& parameter, quint16 word);

/// Text of a raw word: the value list's text, or the number with the parameter's decimals.
HOSTLIB_EXPORT QString ShownText(const ParameterDescription& parameter, quint16 word);

/// Raw word of a number in shown units, rounded to the parameter's resolution; checks limits and data type.
HOSTLIB_EXPORT std::optional<quint16> WordOfNumber(const ParameterDescription& parameter, double shown, QString& error);

/// Raw word nearest to a number in shown units: rounded, and held within what the data type can carry. For values
/// that a drive measures; limits and value list do not count. NaN gives 0.
HOSTLIB_EXPORT quint16 NearestWord(const ParameterDescription& parameter, double shown);

/// Raw word of a text: an entry of the value list, or a decimal number (point or comma).
HOSTLIB_EXPORT std::optional<quint16> WordOfText(const ParameterDescription& parameter, const QString& text,
                                                 QString& error);

/// Refuses words outside the limits or not in the value list.
HOSTLIB_EXPORT bool AcceptsWord(const ParameterDescription& parameter, quint16 word, QString& error);

} // namespace krt550
