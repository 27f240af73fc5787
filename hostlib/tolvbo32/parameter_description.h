#pragma once

#include <QString>
#include <QtGlobal>

#include <utility>
#include <vector>

namespace krt550 {

/// How the raw 16-bit word of a parameter is read.
enum class DataType : int { Unsigned8 = 1, Signed16 = 2, Bits = 4, Unsigned16 = 8 };

/// What a parameter is; the numeric types are refreshed cyclically by the wizard.
enum class ParameterType : int {
    Setting = 1,
    SignedNumber = 2,
    UnsignedNumber = 3,
    ValueList = 4,
    BitWord = 5,
    Code = 6,
    Pointer = 8,
    Counter = 10
};

/// Text of a value list entry for a value that the drive knows but nobody may choose.
inline const QString kExcludedValue = QStringLiteral("#excl#");

/// All that is known of one parameter, values apart. Limits and default in shown units.
struct ParameterDescription {
    quint16 reg = 0; ///< register number, 9906 for 99.06
    QString name;
    QString unit;
    DataType dataType = DataType::Unsigned16;
    ParameterType type = ParameterType::UnsignedNumber;
    int decimals = 0; ///< shown value = raw word / 10^decimals
    double minimum = 0;
    double maximum = 0; ///< minimum and maximum both 0: the data type alone limits
    double defaultValue = 0;
    bool readOnly = false;
    std::vector<std::pair<quint16, QString>> values; ///< value list, in file order

    bool isValueList() const { return !values.empty(); }
    bool hasLimits() const { return minimum != 0 || maximum != 0; }
    QString group() const { return QString::number(reg / 100); }
    /// Index within the group, two digits.
    QString index() const { return QStringLiteral("%1").arg(reg % 100, 2, 10, QLatin1Char('0')); }
    /// "99.06 Service mode", as error texts name it.
    QString displayName() const { return group() + QLatin1Char('.') + index() + QLatin1Char(' ') + name; }
};

} // namespace krt550
