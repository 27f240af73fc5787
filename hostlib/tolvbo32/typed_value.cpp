#include "hostlib/tolvbo32/typed_value.h"

#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QLocale>
#include <QRegularExpression>

namespace krt550 {
namespace {

double LeadingNumber(QString text) {
    static const QRegularExpression number(QStringLiteral(R"(^\s*([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?))"));
    const QRegularExpressionMatch match = number.match(text.replace(QLatin1Char(','), QLatin1Char('.')));
    return match.hasMatch() ? QLocale::c().toDouble(match.captured(1)) : 0.0;
}

/// No more digits behind point or comma than the parameter has, no second one (which would be a separator of
/// thousands), nothing behind the number.
bool HasForm(const QString& typed, int decimals) {
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?(?:\d+(?:[.,](\d*))?|[.,](\d+))\s*$)"));
    const QRegularExpressionMatch match = number.match(typed);
    const auto digits = match.capturedLength(1) + match.capturedLength(2);
    return typed.trimmed().isEmpty() || (match.hasMatch() && digits <= decimals);
}

TypedFault FindRangeFault(const ParameterDescription& parameter, double number) {
    if (parameter.minimum <= number && number <= parameter.maximum)
        return TypedFault::None;
    if (parameter.hasLimits())
        return TypedFault::OutsideLimits;
    switch (parameter.dataType) {
    case DataType::Bits:
        return TypedFault::None;
    case DataType::Unsigned8:
    case DataType::Signed16:
    case DataType::Unsigned16: {
        const ValueRange range = RawRange(parameter.dataType);
        return range.low <= number && number <= range.high ? TypedFault::None : TypedFault::OutsideDataType;
    }
    }
    return TypedFault::UnknownDataType;
}

/// Of "31h", "0x31" and "0b110001"; nothing for any other text.
std::optional<quint16> WordOfBits(const QString& typed) {
    static const QRegularExpression form(QStringLiteral(R"(^(?:0x([0-9a-f]+)|([0-9a-f]+)h|0b([01]+))$)"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(typed.trimmed());
    bool fits = false;
    const QString binary = match.captured(3);
    const quint16 word =
        binary.isEmpty() ? (match.captured(1) + match.captured(2)).toUShort(&fits, 16) : binary.toUShort(&fits, 2);
    return fits ? std::optional(word) : std::nullopt;
}

} // namespace

TypedValue CheckTypedText(const ParameterDescription& parameter, const QString& typed) {
    if (parameter.isValueList())
        return {};
    TypedValue value{TypedFault::None, LeadingNumber(typed)};
    value.fault = FindRangeFault(parameter, value.number);
    if (value.fault == TypedFault::None && !HasForm(typed, parameter.decimals))
        value.fault = TypedFault::Form;
    return value;
}

QString TypedFormHint(int decimals) {
    const QString form =
        decimals == 0 ? QStringLiteral("a whole number, such as 1500")
                      : QStringLiteral("a number with at most %1 behind the point or comma, such as %2")
                            .arg(decimals == 1 ? QStringLiteral("1 digit") : QStringLiteral("%1 digits").arg(decimals),
                                 dtoa(12.5, decimals));
    return QStringLiteral("Please input %1. Thousands are not separated.").arg(form);
}

std::optional<quint16> WordOfTypedText(const ParameterDescription& parameter, const QString& typed, QString& error) {
    if (parameter.dataType == DataType::Bits && !parameter.isValueList())
        if (const std::optional<quint16> word = WordOfBits(typed))
            return AcceptsWord(parameter, *word, error) ? word : std::nullopt;
    const TypedValue value = CheckTypedText(parameter, typed);
    switch (value.fault) {
    case TypedFault::None:
        return WordOfText(parameter, typed, error);
    case TypedFault::Form:
        error = QStringLiteral("Parameter %1: \"%2\" cannot be used. %3")
                    .arg(parameter.displayName(), typed.trimmed(), TypedFormHint(parameter.decimals));
        break;
    case TypedFault::OutsideLimits:
    case TypedFault::OutsideDataType:
    case TypedFault::UnknownDataType:
        error = OutOfRangeText(parameter, QString::number(value.number, 'g', 10));
        break;
    }
    return std::nullopt;
}

} // namespace krt550
