#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

/// Short ways to describe parameters in tests.
namespace krt550 {

/// A number of 16 bits, unsigned unless `minimum` is below 0. Its default is 0, or the minimum when that is more.
inline ParameterDescription Number(quint16 reg, const QString& name, int decimals = 0, double minimum = 0,
                                   double maximum = 0, const QString& unit = {}) {
    ParameterDescription parameter;
    parameter.reg = reg;
    parameter.name = name;
    parameter.unit = unit;
    parameter.decimals = decimals;
    parameter.minimum = minimum;
    parameter.maximum = maximum;
    parameter.defaultValue = minimum > 0 ? minimum : 0;
    if (minimum < 0) {
        parameter.dataType = DataType::Signed16;
        parameter.type = ParameterType::SignedNumber;
    }
    return parameter;
}

/// One that is named after its register.
inline ParameterDescription Plain(int reg, double minimum = 0, double maximum = 10000) {
    return Number(static_cast<quint16>(reg), QStringLiteral("Parameter %1").arg(reg), 0, minimum, maximum);
}

inline ParameterDescription WithDefault(ParameterDescription parameter, double value) {
    parameter.defaultValue = value;
    return parameter;
}

/// A value with a sign that the drive only shows.
inline ParameterDescription Signal(quint16 reg, const QString& name, const QString& unit = {}, int decimals = 0) {
    ParameterDescription parameter = Number(reg, name, decimals, 0, 0, unit);
    parameter.dataType = DataType::Signed16;
    parameter.type = ParameterType::SignedNumber;
    parameter.readOnly = true;
    return parameter;
}

inline ParameterDescription Bits(quint16 reg, const QString& name, bool readOnly) {
    ParameterDescription parameter = Number(reg, name);
    parameter.dataType = DataType::Bits;
    parameter.type = ParameterType::BitWord;
    parameter.readOnly = readOnly;
    return parameter;
}

/// Its default is the first value.
inline ParameterDescription List(quint16 reg, const QString& name, std::vector<std::pair<quint16, QString>> values) {
    ParameterDescription parameter = Number(reg, name);
    parameter.type = ParameterType::ValueList;
    parameter.defaultValue = values.front().first;
    parameter.values = std::move(values);
    return parameter;
}

} // namespace krt550
