#include "hostlib/tolvbo32/value_codec.h"

#include "hostlib/tolvbo32/dtoa.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

struct Range {
    double low;
    double high;
};

Range RawRange(DataType type) {
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

double Scale(const ParameterDescription& parameter) { return std::pow(10.0, parameter.decimals); }

Range ShownRange(const ParameterDescription& parameter) {
    if (parameter.hasLimits())
        return {parameter.minimum, parameter.maximum};
    const Range raw = RawRange(parameter.dataType);
    return {raw.low / Scale(parameter), raw.high / Scale(parameter)};
}

QString OutOfRange(const ParameterDescription& parameter, const QString& value) {
    const Range range = ShownRange(parameter);
    const QString unit = parameter.unit.isEmpty() ? QString() : QLatin1Char(' ') + parameter.unit;
    return QStringLiteral("Parameter %1: %2 is out of range. It must lie between %3 and %4%5.")
        .arg(parameter.displayName(), value, dtoa(range.low, parameter.decimals), dtoa(range.high, parameter.decimals),
             unit);
}

} // namespace

double ShownNumber(const ParameterDescription& parameter, quint16 word) {
    double raw = word;
    if (parameter.dataType == DataType::Signed16)
        raw = static_cast<qint16>(word);
    else if (parameter.dataType == DataType::Unsigned8)
        raw = word & 0xFF;
    return raw / Scale(parameter);
}

QString ShownText(const ParameterDescription& parameter, quint16 word) {
    const auto entry =
        std::ranges::find(parameter.values, word, [](const std::pair<quint16, QString>& value) { return value.first; });
    if (entry != parameter.values.end())
        return entry->second;
    return dtoa(ShownNumber(parameter, word), parameter.decimals);
}

std::optional<quint16> WordOfNumber(const ParameterDescription& parameter, double shown, QString& error) {
    const Range limits = ShownRange(parameter);
    const Range raw = RawRange(parameter.dataType);
    // Half a step of slack, so that 0.1 + 0.2 typed against a limit of 0.3 is not refused.
    const double slack = 0.5 / Scale(parameter);
    const double scaled = std::round(shown * Scale(parameter));
    const bool inside = shown > limits.low - slack && shown < limits.high + slack;
    if (!std::isfinite(shown) || !inside || scaled < raw.low || scaled > raw.high) {
        error = OutOfRange(parameter, QString::number(shown, 'g', 10));
        return std::nullopt;
    }
    return static_cast<quint16>(static_cast<qint32>(scaled));
}

std::optional<quint16> WordOfText(const ParameterDescription& parameter, const QString& text, QString& error) {
    if (parameter.isValueList()) {
        const auto entry = std::ranges::find(parameter.values, text,
                                             [](const std::pair<quint16, QString>& value) { return value.second; });
        if (entry != parameter.values.end())
            return entry->first;
    }
    QString number = text.trimmed();
    number.replace(QLatin1Char(','), QLatin1Char('.'));
    bool isNumber = false;
    const double shown = QLocale::c().toDouble(number, &isNumber);
    if (!isNumber) {
        const QString expected =
            parameter.isValueList() ? QStringLiteral("one of its values") : QStringLiteral("a number");
        error = QStringLiteral("Parameter %1: \"%2\" is not %3.").arg(parameter.displayName(), text, expected);
        return std::nullopt;
    }
    const std::optional<quint16> word = WordOfNumber(parameter, shown, error);
    if (word && !AcceptsWord(parameter, *word, error))
        return std::nullopt;
    return word;
}

bool AcceptsWord(const ParameterDescription& parameter, quint16 word, QString& error) {
    if (parameter.isValueList()) {
        const bool listed = std::ranges::any_of(parameter.values, [word](const auto& v) { return v.first == word; });
        if (!listed)
            error = QStringLiteral("Parameter %1: %2 is not one of its values.").arg(parameter.displayName()).arg(word);
        return listed;
    }
    const double shown = ShownNumber(parameter, word);
    return WordOfNumber(parameter, shown, error).has_value();
}

} // namespace krt550
