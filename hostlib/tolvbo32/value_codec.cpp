#include "hostlib/tolvbo32/value_codec.h"

#include "hostlib/tolvbo32/dtoa.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

double Scale(const ParameterDescription& parameter) {
    double scale = 1;
    for (int i = 0; i < parameter.decimals; ++i)
        scale *= 10;
    return scale;
}

auto FindValue(const ParameterDescription& parameter, quint16 word) {
    return std::ranges::find_if(parameter.values, [word](const auto& value) { return value.first == word; });
}

/// Word of a text of the value list, or of the number of one of its values; values that are not offered are not taken.
std::optional<quint16> WordOfListText(const ParameterDescription& parameter, const QString& text, QString& error) {
    auto entry = std::ranges::find_if(parameter.values, [&text](const auto& value) { return value.second == text; });
    if (entry == parameter.values.end()) {
        bool isWord = false;
        const quint16 word = text.trimmed().toUShort(&isWord);
        if (isWord)
            entry = FindValue(parameter, word);
    }
    if (entry == parameter.values.end() || entry->second == kExcludedValue) {
        error = QStringLiteral("Parameter %1: \"%2\" is not one of its values.").arg(parameter.displayName(), text);
        return std::nullopt;
    }
    return entry->first;
}

} // namespace

ValueRange RawRange(DataType type) {
    switch (type) {
    case DataType::Unsigned8:
        return {0, 255};
    case DataType::Signed16:
        return {-32768, 32767};
    case DataType::Bits:
    case DataType::Unsigned16:
        break;
    }
    return {0, 65535};
}

ValueRange ShownRange(const ParameterDescription& parameter) {
    if (parameter.hasLimits())
        return {parameter.minimum, parameter.maximum};
    const ValueRange raw = RawRange(parameter.dataType);
    return {raw.low / Scale(parameter), raw.high / Scale(parameter)};
}

QString OutOfRangeText(const ParameterDescription& parameter, const QString& value) {
    const ValueRange range = ShownRange(parameter);
    const QString unit = parameter.unit.isEmpty() ? QString() : QLatin1Char(' ') + parameter.unit;
    return QStringLiteral("Parameter %1: %2 is out of range. It must lie between %3 and %4%5.")
        .arg(parameter.displayName(), value, dtoa(range.low, parameter.decimals), dtoa(range.high, parameter.decimals),
             unit);
}

QString RegisterText(quint16 reg) {
    return QStringLiteral("%1.%2").arg(reg / 100).arg(reg % 100, 2, 10, QLatin1Char('0'));
}

double ShownNumber(const ParameterDescription& parameter, quint16 word) {
    double raw = word;
    if (parameter.dataType == DataType::Signed16)
        raw = static_cast<qint16>(word);
    else if (parameter.dataType == DataType::Unsigned8)
        raw = word & 0xFF;
    return raw / Scale(parameter);
}

QString ShownText(const ParameterDescription& parameter, quint16 word) {
    const auto entry = FindValue(parameter, word);
    if (entry != parameter.values.end() && entry->second != kExcludedValue)
        return entry->second;
    return dtoa(ShownNumber(parameter, word), parameter.decimals);
}

std::optional<quint16> WordOfNumber(const ParameterDescription& parameter, double shown, QString& error) {
    const ValueRange limits = ShownRange(parameter);
    const ValueRange raw = RawRange(parameter.dataType);
    const double scaled = std::round(shown * Scale(parameter));
    // A thousandth of a step of slack: limits such as 0.3 have no exact binary form.
    constexpr double kSlack = 0.001;
    const bool inside =
        scaled >= limits.low * Scale(parameter) - kSlack && scaled <= limits.high * Scale(parameter) + kSlack;
    if (!std::isfinite(shown) || !inside || scaled < raw.low || scaled > raw.high) {
        error = OutOfRangeText(parameter, QString::number(shown, 'g', 10));
        return std::nullopt;
    }
    return static_cast<quint16>(static_cast<qint32>(scaled));
}

quint16 NearestWord(const ParameterDescription& parameter, double shown) {
    const ValueRange raw = RawRange(parameter.dataType);
    const double scaled = std::isnan(shown) ? 0 : std::round(shown * Scale(parameter));
    return static_cast<quint16>(static_cast<qint32>(std::clamp(scaled, raw.low, raw.high)));
}

std::optional<quint16> WordOfText(const ParameterDescription& parameter, const QString& text, QString& error) {
    if (parameter.isValueList())
        return WordOfListText(parameter, text, error);
    QString number = text.trimmed();
    number.replace(QLatin1Char(','), QLatin1Char('.'));
    bool isNumber = false;
    const double shown = QLocale::c().toDouble(number, &isNumber);
    if (!isNumber) {
        error = QStringLiteral("Parameter %1: \"%2\" is not a number.").arg(parameter.displayName(), text);
        return std::nullopt;
    }
    return WordOfNumber(parameter, shown, error);
}

bool AcceptsWord(const ParameterDescription& parameter, quint16 word, QString& error) {
    if (parameter.isValueList()) {
        const bool listed = FindValue(parameter, word) != parameter.values.end();
        if (!listed)
            error = QStringLiteral("Parameter %1: %2 is not one of its values.")
                        .arg(parameter.displayName(), QString::number(word));
        return listed;
    }
    if (parameter.dataType == DataType::Unsigned8 && word > RawRange(parameter.dataType).high) {
        error = OutOfRangeText(parameter, QString::number(word));
        return false;
    }
    return WordOfNumber(parameter, ShownNumber(parameter, word), error).has_value();
}

} // namespace krt550
