#include "host/commands/command.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

constexpr ToolCommand kCommands[] = {
    {"list", "lists parameters with value, limits and default", RunListCommand},
    {"get", "reads parameters", RunGetCommand},
    {"set", "writes parameters", RunSetCommand},
    {"backup", "writes all settings of the drive into a text file", RunBackupCommand},
    {"compare", "says what differs between two backups, or a backup and the drive", RunCompareCommand},
    {"restore", "puts the settings of a backup back into the drive", RunRestoreCommand},
    {"record", "says what a record holds", RunRecordCommand},
    {"report", "makes a document for signature of a record", RunReportCommand},
    {"play", "acts a script out on the wizard: FILE and options", nullptr, "--play"},
    {"wizard", "opens the commissioning wizard and ends with it: options", nullptr, "--wizard"},
};

} // namespace

const ToolCommand* FindCommand(const QString& name) {
    const auto* const found = std::ranges::find_if(
        kCommands, [&name](const ToolCommand& command) { return name == QLatin1String(command.name); });
    return found == std::end(kCommands) ? nullptr : found;
}

QStringList AsOptions(const ToolCommand& command, QStringList arguments) {
    arguments.removeAt(1);
    if (command.option)
        arguments.insert(1, QLatin1String(command.option));
    return arguments;
}

QString CommandHelp() {
    QString text;
    for (const ToolCommand& command : kCommands)
        text += QStringLiteral("  %1  %2\n").arg(QLatin1String(command.name), -8).arg(QLatin1String(command.help));
    return text;
}

} // namespace krt550
