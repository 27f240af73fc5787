#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/tool.h"

#include <QJsonArray>

#include <climits>

namespace krt550 {
namespace {

constexpr CommandOption kGetOptions[] = {kDriveOption, kParametersOption, kMacrosOption, kJsonOption};
constexpr CommandUsage kGetUsage = {"get REGISTER ...",
                                 "Reads parameters of the drive. A register is written 99.06 or 9906.\n",
                                 "0 all were read; 1 the drive does not answer, or a value could not be read;\n"
                                 "2 a wrong option, no such register, or an unusable file.",
                                 kGetOptions,
                                 1,
                                 INT_MAX};

} // namespace

int RunGetCommand(const QStringList& arguments) {
    const CCommandLine line(kGetUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    CCommandDrive drive(line);
    if (const auto end = drive.Connect())
        return *end;
    const auto parameters = drive.Find(line.GetArguments());
    if (!parameters)
        return kExitUsage;
    const ParameterValues values = drive.Read(*parameters);
    QJsonArray array;
    for (const ParameterDescription& parameter : *parameters) {
        const std::optional<quint16> word = values.Find(parameter.reg);
        if (line.Has("json"))
            array.append(ValueJson(parameter, word));
        else if (word)
            Print(QStringLiteral("%1: %2").arg(parameter.displayName(), ValueText(parameter, *word)));
    }
    if (line.Has("json"))
        PrintJson(array);
    return values.unread.empty() ? 0 : kExitFailure;
}

} // namespace krt550
