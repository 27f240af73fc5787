#include "host/parameters/parameter_row.h"

#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QStringList>

namespace krt550 {
namespace {

bool IsBitWord(const ParameterDescription& parameter) {
    return parameter.dataType == DataType::Bits && !parameter.isValueList();
}

bool HasShownLimits(const ParameterDescription& parameter) {
    return !parameter.isValueList() && !IsBitWord(parameter) && (parameter.hasLimits() || !parameter.readOnly);
}

QString WithUnit(const ParameterDescription& parameter, quint16 word) {
    return (CellText(parameter, word) + QLatin1Char(' ') + parameter.unit).trimmed();
}

QString SetBits(quint16 word) {
    QStringList bits;
    for (int bit = 0; bit < 16; ++bit)
        if (word >> bit & 1)
            bits.append(QString::number(bit));
    return bits.isEmpty() ? QStringLiteral("none") : bits.join(QStringLiteral(", "));
}

} // namespace

QString CellText(const ParameterDescription& parameter, quint16 word) {
    if (IsBitWord(parameter))
        return QStringLiteral("%1h").arg(QString::number(word, 16).toUpper(), 4, QLatin1Char('0'));
    return ShownText(parameter, word);
}

QString MinimumText(const ParameterDescription& parameter) {
    return HasShownLimits(parameter) ? dtoa(ShownRange(parameter).low, parameter.decimals) : QString();
}

QString MaximumText(const ParameterDescription& parameter) {
    return HasShownLimits(parameter) ? dtoa(ShownRange(parameter).high, parameter.decimals) : QString();
}

QString DefaultText(const ParameterRow& row) {
    return row.description.readOnly ? QString() : CellText(row.description, row.defaultWord);
}

QString ToolTipText(const ParameterRow& row) {
    const ParameterDescription& parameter = row.description;
    QStringList parts;
    const auto add = [&parts](const QString& text) { parts.append(text.toHtmlEscaped()); };
    add(parameter.displayName());
    if (!row.toolTip.isEmpty())
        add(row.toolTip);
    if (IsBitWord(parameter) && row.word)
        add(QStringLiteral("Set bits: ") + SetBits(*row.word));
    if (row.DiffersFromDefault())
        add(QStringLiteral("Default: ") + WithUnit(parameter, row.defaultWord));
    if (row.DiffersFromConnected())
        add(QStringLiteral("As connected: ") + WithUnit(parameter, *row.connected));
    if (parameter.readOnly)
        add(QStringLiteral("The drive shows it only: it cannot be edited."));
    if (!row.failure.isEmpty())
        add(QStringLiteral("It could not be read: ") + row.failure);
    return QStringLiteral("<p>%1</p>").arg(parts.join(QStringLiteral("<br>")));
}

ParameterRow MakeRow(ParameterDescription description, QString toolTip) {
    ParameterRow row;
    QString text = description.name;
    for (const auto& [value, name] : description.values)
        if (name != kExcludedValue)
            text += QLatin1Char('\n') + name;
    row.searchText = (text + QLatin1Char('\n') + toolTip).toLower().toUtf8();
    row.defaultWord = NearestWord(description, description.defaultValue);
    row.description = std::move(description);
    row.toolTip = std::move(toolTip);
    return row;
}

} // namespace krt550
