#include "host/backup/comparison.h"
#include "host/backup/keeping.h"
#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/typed_value.h"

#include <algorithm>
#include <climits>

namespace krt550 {
namespace {

constexpr CommandOption kSetOptions[] = {
    kDriveOption,
    kParametersOption,
    kMacrosOption,
    kRecordOption,
    {"act", nullptr,
     "takes registers too whose values are no settings but commands, such as 7.01 and 99.07; those are not read back"}};
constexpr CommandUsage kSetUsage = {
    "set REGISTER=VALUE ...",
    "Writes parameters of the drive, in this order, and reads each back. A register is written 99.06 or 9906; a value\n"
    "is a number in shown units, a text of the parameter's value list, or the number of one. All are checked before\n"
    "the first is written; the first that the drive refuses ends it, and what was written before stays.\n",
    "0 all are written; 1 the drive does not answer or has refused a value; 2 a wrong option,\n"
    "no such register, no value of it, or an unusable file: nothing was written.",
    kSetOptions,
    1,
    INT_MAX};

/// What is wrong with an assignment; empty when nothing is, and then it is among `values`.
QString Check(const ParameterDescription& parameter, const QString& text, bool mayAct,
              std::vector<ParameterValue>& values) {
    QString error;
    if (parameter.readOnly)
        return QStringLiteral("Parameter %1 is read-only.").arg(parameter.displayName());
    if (KeepingOf(parameter, &error) == Keeping::Left && !mayAct)
        return QStringLiteral("Parameter %1 is no setting: %2; --act writes it.").arg(parameter.displayName(), error);
    if (std::ranges::find(values, parameter.reg, &ParameterValue::reg) != values.end())
        return QStringLiteral("Parameter %1 stands there twice.").arg(parameter.displayName());
    if (const std::optional<quint16> word = WordOfTypedText(parameter, text, error)) {
        values.push_back({parameter.reg, *word});
        return {};
    }
    return error;
}

/// Writes a value and reads it back. Empty, or what went wrong.
QString Write(CParameterLink& link, const ParameterDescription& parameter, quint16 word, QString& text) {
    quint16 held = 0;
    if (!link.ReadWord(parameter.reg, held))
        return link.LastErrorText();
    text = ChangeText({parameter.reg, held, word}, std::span(&parameter, 1));
    if (!link.WriteWord(parameter.reg, word))
        return link.LastErrorText();
    // A drive that has done what it was told may have taken the command back.
    if (KeepingOf(parameter) == Keeping::Left)
        return {};
    if (!link.ReadWord(parameter.reg, held))
        return link.LastErrorText();
    return held == word ? QString() : QStringLiteral("the drive holds %1 afterwards").arg(ValueText(parameter, held));
}

int WriteAll(CCommandDrive& drive, const CCommandLine& line, const std::vector<ParameterDescription>& parameters,
             const std::vector<ParameterValue>& values) {
    int status = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        QString text;
        QString problem;
        if (status == 0)
            problem = drive.IsInterrupted() ? QStringLiteral("interrupted")
                                            : Write(drive.Link(), parameters[i], values[i].word, text);
        if (status != 0)
            line.Complain(QStringLiteral("%1: not written").arg(parameters[i].displayName()), status);
        else if (!problem.isEmpty())
            status = line.Complain(QStringLiteral("%1: %2").arg(parameters[i].displayName(), problem), kExitFailure);
        else
            Print(text);
    }
    return status;
}

} // namespace

int RunSetCommand(const QStringList& arguments) {
    const CCommandLine line(kSetUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    CCommandDrive drive(line);
    if (const auto end = drive.ConnectRecorded())
        return *end;
    QStringList registers;
    QStringList texts;
    for (const QString& argument : line.GetArguments()) {
        registers.append(argument.section(QLatin1Char('='), 0, 0));
        texts.append(argument.section(QLatin1Char('='), 1));
    }
    const auto parameters = drive.Find(registers);
    if (!parameters)
        return kExitUsage;
    std::vector<ParameterValue> values;
    int status = 0;
    for (std::size_t i = 0; i < parameters->size(); ++i)
        if (const QString problem = Check((*parameters)[i], texts[qsizetype(i)], line.Has("act"), values);
            !problem.isEmpty())
            status = line.Complain(problem, kExitUsage);
    return status == 0 ? drive.End(WriteAll(drive, line, *parameters, values)) : status;
}

} // namespace krt550
