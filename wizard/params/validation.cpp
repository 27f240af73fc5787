#include "wizard/params/validation.h"

#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kOutsideLimitsMessage = 4;

/// Range of a data type for parameters without limits, and the message for what lies outside.
struct DataTypeRange {
    int code;
    double low;
    double high;
    int message;
};

constexpr DataTypeRange kRanges[] = {{1, 0, 255, 8}, {2, -32768, 32767, 9}, {8, 0, 65535, 10}};
constexpr int kUncheckedDataType = 4;

double LeadingNumber(const QString& text) {
    static const QRegularExpression number(QStringLiteral(R"(^\s*([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?))"));
    const QRegularExpressionMatch match = number.match(text);
    return match.hasMatch() ? QLocale::c().toDouble(match.captured(1)) : 0.0;
}

bool Refuse(const QString& message) {
    ShowMessageBox(message, MessageIcon::Exclamation);
    return false;
}

/// What can be typed into the parameter: no more digits behind point or comma than it has, no second one (which would
/// be a separator of thousands), nothing behind the number.
bool ValidateFormat(const CParameter& parameter, const QString& typed) {
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?(?:\d+(?:[.,](\d*))?|[.,](\d+))\s*$)"));
    const QRegularExpressionMatch match = number.match(typed);
    const int decimals = parameter.GetResolution();
    const auto digits = match.capturedLength(1) + match.capturedLength(2);
    if (typed.trimmed().isEmpty() || (match.hasMatch() && digits <= decimals))
        return true;
    const QString form =
        decimals == 0 ? QStringLiteral("a whole number, such as 1500")
                      : QStringLiteral("a number with at most %1 behind the point or comma, such as %2")
                            .arg(decimals == 1 ? QStringLiteral("1 digit") : QStringLiteral("%1 digits").arg(decimals),
                                 dtoa(12.5, decimals));
    return Refuse(
        QStringLiteral("For parameter %1 \"%2\" cannot be used.\nPlease input %3. Thousands are not separated.")
            .arg(RegisterText(parameter), typed.trimmed(), form));
}

bool ValidateByDataType(const CParameter& parameter, double value) {
    if (parameter.GetDataType() == kUncheckedDataType)
        return true;
    const auto* range = std::ranges::find(kRanges, parameter.GetDataType(), &DataTypeRange::code);
    if (range == std::end(kRanges))
        return Refuse(QStringLiteral("Unknown datatype!"));
    if (value >= range->low && value <= range->high)
        return true;
    const double shown = std::clamp(value, -2147483648.0, 2147483647.0);
    return Refuse(LoadText(range->message)
                      .replace(QLatin1String("REPLACE_VALUE"), QString::number(static_cast<int>(shown)))
                      .replace(QLatin1String("REPLACE_PARAM"), RegisterText(parameter)));
}

} // namespace

bool ValidateValueText(const CParameter* parameter, QString& text) {
    if (!parameter)
        return false;
    if (parameter->IsValueList())
        return true;
    const double minimum = parameter->GetMinValue();
    const double maximum = parameter->GetMaxValue();
    const QString typed = text;
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    const double value = LeadingNumber(text);
    if (minimum <= value && value <= maximum)
        return ValidateFormat(*parameter, typed);
    if (minimum != 0 || maximum != 0)
        return Refuse(MessageFor(kOutsideLimitsMessage, parameter->GetRegister()));
    return ValidateByDataType(*parameter, value) && ValidateFormat(*parameter, typed);
}

bool ValidateControlValue(const CParameter* parameter, const QWidget* control) {
    if (!parameter || !control)
        return false;
    QString text = GetControlText(control);
    return ValidateValueText(parameter, text);
}

} // namespace krt550
