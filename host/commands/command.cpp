#include "host/commands/command.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

constexpr ToolCommand kCommands[] = {
    {"report", "makes a document for signature of a record", RunReportCommand},
};

} // namespace

const ToolCommand* FindCommand(const QString& name) {
    const auto* const found = std::ranges::find_if(
        kCommands, [&name](const ToolCommand& command) { return name == QLatin1String(command.name); });
    return found == std::end(kCommands) ? nullptr : found;
}

QString CommandHelp() {
    QString text;
    for (const ToolCommand& command : kCommands)
        text += QStringLiteral("  %1  %2\n").arg(QLatin1String(command.name), -8).arg(QLatin1String(command.help));
    return text;
}

} // namespace krt550
