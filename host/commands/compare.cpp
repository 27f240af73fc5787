#include "host/backup/backup_file.h"
#include "host/backup/comparison.h"
#include "host/backup/keeping.h"
#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/tool.h"

#include <QJsonArray>

namespace krt550 {
namespace {

constexpr CommandOption kCompareOptions[] = {kDriveOption, kParametersOption, kMacrosOption, kJsonOption};
constexpr CommandUsage kCompareUsage = {
    "compare FILE [FILE2]",
    "Compares two backups, or a backup with the drive: a line for each parameter that differs, value in FILE -> value\n"
    "in FILE2 or in the drive. (not there) stands for a parameter that one side does not have.\n",
    "0 no difference; 1 there are differences; 2 a wrong option, an unusable file, a drive that does not\n"
    "answer, or a value that could not be read.",
    kCompareOptions,
    1,
    2};
constexpr int kDiffers = 1;
constexpr int kTrouble = 2;

void PrintChanges(const std::vector<ValueChange>& changes, std::span<const ParameterDescription> parameters,
                  bool isJson) {
    QJsonArray array;
    for (const ValueChange& change : changes) {
        const ParameterDescription* parameter = FindParameter(parameters, change.reg);
        if (!isJson || !parameter) {
            Print(ChangeText(change, parameters));
            continue;
        }
        QJsonObject object = ValueJson(*parameter, change.from);
        object[QStringLiteral("from")] = object.take(QStringLiteral("value"));
        object[QStringLiteral("to")] = ValueJson(*parameter, change.to)[QStringLiteral("value")];
        object.remove(QStringLiteral("word"));
        array.append(object);
    }
    if (isJson)
        PrintJson(array);
}

} // namespace

int RunCompareCommand(const QStringList& arguments) {
    const CCommandLine line(kCompareUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    const QStringList& files = line.GetArguments();
    const bool isWithDrive = files.size() == 1;
    if (!isWithDrive && line.Has("drive"))
        return line.Complain(QStringLiteral("two files are compared, or one with the drive"), kTrouble);
    CCommandDrive drive(line);
    if (isWithDrive ? drive.Connect() : drive.Describe())
        return kTrouble;
    std::vector<ParameterValues> sides;
    QStringList errors;
    for (const QString& file : files)
        if (auto values = ReadBackupFile(file, drive.Described(), errors))
            sides.push_back(*std::move(values));
    if (!errors.isEmpty())
        return line.Complain(errors.join(QLatin1Char('\n')), kTrouble);
    for (std::size_t i = 0; i < sides.size(); ++i)
        for (const auto& [reg, reason] : sides[i].unread)
            line.Complain(QStringLiteral("%1: no value in %2: %3")
                              .arg(DisplayName(reg, drive.Described()), files[qsizetype(i)], reason),
                          kTrouble);
    if (isWithDrive)
        sides.push_back(drive.Read(BackedUp(drive.Parameters())));
    const std::vector<ValueChange> changes = Compare(sides[0], sides[1]);
    PrintChanges(changes, drive.Described(), line.Has("json"));
    if (!sides[0].unread.empty() || !sides[1].unread.empty())
        return kTrouble;
    return changes.empty() ? 0 : kDiffers;
}

} // namespace krt550
