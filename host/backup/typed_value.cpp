#include "host/backup/typed_value.h"

#include "hostlib/tolvbo32/value_codec.h"

#include <QRegularExpression>

namespace krt550 {
namespace {

/// A drive may hold a value of the list that nobody may choose: it is known by its number.
std::optional<quint16> WordOfListed(const ParameterDescription& parameter, const QString& text, QString& error) {
    const std::optional<quint16> word = WordOfText(parameter, text, error);
    bool isNumber = false;
    const quint16 number = text.toUShort(&isNumber);
    QString ignored;
    if (word || !isNumber || !AcceptsWord(parameter, number, ignored))
        return word;
    return number;
}

} // namespace

std::optional<quint16> WordOfTyped(const ParameterDescription& parameter, const QString& text, QString& error) {
    if (parameter.isValueList())
        return WordOfListed(parameter, text, error);
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?(?:\d+(?:[.,](\d*))?|[.,](\d+))\s*$)"));
    const QRegularExpressionMatch match = number.match(text);
    const auto decimals = match.capturedLength(1) + match.capturedLength(2);
    if (match.hasMatch() && decimals <= parameter.decimals)
        return WordOfText(parameter, text, error);
    error = match.hasMatch()
                ? QStringLiteral("Parameter %1: \"%2\" has more than %3 decimals.")
                      .arg(parameter.displayName(), text.trimmed())
                      .arg(parameter.decimals)
                : QStringLiteral("Parameter %1: \"%2\" is not a number.").arg(parameter.displayName(), text.trimmed());
    return std::nullopt;
}

} // namespace krt550
