#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QJsonArray>

#include <algorithm>

namespace krt550 {
namespace {

constexpr CommandOption kListOptions[] = {kDriveOption, kParametersOption, kMacrosOption, kJsonOption};
constexpr CommandUsage kListUsage = {
    "list [GROUP|REGISTER|TEXT]",
    "Lists the drive's parameters: register, name, value, limits, default and access (rw, or ro when the drive only\n"
    "shows it). GROUP is a number such as 43, REGISTER one such as 43.06 or 4306, and TEXT a part of a name. A single\n"
    "parameter is listed with the texts of its values.\n",
    "0 all was read; 1 the drive does not answer, or a value could not be read; 2 a wrong option,\n"
    "an unusable file, or nothing to list.",
    kListOptions,
    0,
    1};

bool IsMeant(const ParameterDescription& parameter, const QString& text) {
    return text.isEmpty() || parameter.group() == text || ParseRegister(text) == parameter.reg ||
           parameter.name.contains(text, Qt::CaseInsensitive);
}

QString LimitText(const ParameterDescription& parameter) {
    if (parameter.isValueList())
        return QStringLiteral("%1 values").arg(parameter.values.size());
    return parameter.hasLimits()
               ? QStringLiteral("%1 .. %2")
                     .arg(dtoa(parameter.minimum, parameter.decimals), dtoa(parameter.maximum, parameter.decimals))
               : QString();
}

QString DefaultText(const ParameterDescription& parameter) {
    return ShownText(parameter, NearestWord(parameter, parameter.defaultValue));
}

QString AccessText(const ParameterDescription& parameter) {
    return parameter.readOnly ? QStringLiteral("ro") : QStringLiteral("rw");
}

QJsonObject Json(const ParameterDescription& parameter, std::optional<quint16> word) {
    QJsonObject object = ValueJson(parameter, word);
    object[QStringLiteral("default")] =
        ValueJson(parameter, NearestWord(parameter, parameter.defaultValue))[QStringLiteral("value")];
    object[QStringLiteral("access")] = AccessText(parameter);
    if (parameter.isValueList()) {
        QJsonArray texts;
        for (const auto& [value, text] : parameter.values)
            texts.append(text);
        object[QStringLiteral("values")] = texts;
    } else if (parameter.hasLimits()) {
        object[QStringLiteral("minimum")] = parameter.minimum;
        object[QStringLiteral("maximum")] = parameter.maximum;
    }
    return object;
}

void PrintRows(const std::vector<ParameterDescription>& parameters, const ParameterValues& values) {
    QList<QStringList> rows;
    for (const ParameterDescription& parameter : parameters) {
        const std::optional<quint16> word = values.Find(parameter.reg);
        rows.append({RegisterText(parameter.reg), parameter.name,
                     word ? ValueText(parameter, *word) : QStringLiteral("?"), LimitText(parameter),
                     DefaultText(parameter), AccessText(parameter)});
    }
    PrintTable(rows);
    if (parameters.size() == 1)
        for (const auto& [value, text] : parameters.front().values)
            Print(QStringLiteral("    %1  %2").arg(value).arg(text));
}

} // namespace

int RunListCommand(const QStringList& arguments) {
    const CCommandLine line(kListUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    CCommandDrive drive(line);
    if (const auto end = drive.Connect())
        return *end;
    const QString text = line.GetArguments().value(0);
    std::vector<ParameterDescription> meant;
    std::ranges::copy_if(drive.Parameters(), std::back_inserter(meant),
                         [&text](const ParameterDescription& parameter) { return IsMeant(parameter, text); });
    if (meant.empty())
        return line.Complain(QStringLiteral("the drive has no group, parameter or name with \"%1\"").arg(text),
                             kExitUsage);
    const ParameterValues values = drive.Read(meant);
    if (line.Has("json")) {
        QJsonArray array;
        for (const ParameterDescription& parameter : meant)
            array.append(Json(parameter, values.Find(parameter.reg)));
        PrintJson(array);
    } else {
        PrintRows(meant, values);
    }
    return values.unread.empty() ? 0 : kExitFailure;
}

} // namespace krt550
