#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <initializer_list>

/// Short ways to describe parameters in tests.
namespace krt550::test {

inline ParameterDescription Number(quint16 reg, const char* name, int decimals = 0, double minimum = 0,
                                   double maximum = 0, double defaultValue = 0) {
    ParameterDescription parameter;
    parameter.reg = reg;
    parameter.name = QString::fromUtf8(name);
    parameter.decimals = decimals;
    parameter.minimum = minimum;
    parameter.maximum = maximum;
    parameter.defaultValue = defaultValue;
    return parameter;
}

/// A number with a sign.
inline ParameterDescription Signed(quint16 reg, const char* name, int decimals = 0, double minimum = 0,
                                   double maximum = 0, double defaultValue = 0) {
    ParameterDescription parameter = Number(reg, name, decimals, minimum, maximum, defaultValue);
    parameter.dataType = DataType::Signed16;
    parameter.type = ParameterType::SignedNumber;
    return parameter;
}

/// A value that the drive only shows.
inline ParameterDescription Signal(quint16 reg, const char* name, const char* unit = "", int decimals = 0) {
    ParameterDescription parameter = Signed(reg, name, decimals);
    parameter.unit = QString::fromUtf8(unit);
    parameter.readOnly = true;
    return parameter;
}

inline ParameterDescription Bits(quint16 reg, const char* name, bool readOnly) {
    ParameterDescription parameter = Number(reg, name);
    parameter.dataType = DataType::Bits;
    parameter.type = ParameterType::BitWord;
    parameter.readOnly = readOnly;
    return parameter;
}

inline ParameterDescription List(quint16 reg, const char* name,
                                 std::initializer_list<std::pair<quint16, const char*>> values) {
    ParameterDescription parameter = Number(reg, name);
    parameter.type = ParameterType::ValueList;
    for (const auto& [word, text] : values)
        parameter.values.emplace_back(word, QString::fromUtf8(text));
    return parameter;
}

} // namespace krt550::test
