#include "host/backup/backup_file.h"
#include "host/backup/keeping.h"
#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/options.h"
#include "host/tool.h"

#include <QFileInfo>

namespace krt550 {
namespace {

constexpr CommandOption kBackupOptions[] = {
    kDriveOption, kParametersOption, kMacrosOption, {"overwrite", nullptr, "replaces a file that is there already"}};
constexpr CommandUsage kBackupUsage = {
    "backup FILE",
    "Writes all settings of the drive into a text file that people can read and compare, one line a parameter, and\n"
    "what says which drive it is. Signals and commands are left out. docs/backup.md describes the file.\n",
    "0 the backup is complete; 1 the drive does not answer (no file is written), or a value could not\n"
    "be read (its line says so); 2 a wrong option, or a file that is unusable or there already.",
    kBackupOptions,
    1,
    1};

} // namespace

int RunBackupCommand(const QStringList& arguments) {
    const CCommandLine line(kBackupUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    const QString path = line.GetArguments().first();
    if (QFileInfo::exists(path) && !line.Has("overwrite"))
        return line.Complain(QStringLiteral("%1 is there already; --overwrite replaces it").arg(path), kExitUsage);
    CCommandDrive drive(line);
    if (const auto end = drive.Connect())
        return *end;
    const std::vector<ParameterDescription> parameters = BackedUp(drive.Parameters());
    const ParameterValues values = drive.Read(parameters);
    if (drive.IsInterrupted() || !drive.Drive().RefreshState())
        return line.Complain(QStringLiteral("no backup is written"), kExitFailure);
    const QDateTime now = QDateTime::currentDateTime();
    const QByteArray text = BackupText(
        values, parameters, {drive.Name(), now.toOffsetFromUtc(now.offsetFromUtc()), VersionText().trimmed()});
    QString error;
    if (!WriteBackupFile(path, text, error))
        return line.Complain(error, kExitUsage);
    Print(QStringLiteral("%1: %2 values").arg(path).arg(values.values.size()));
    return values.unread.empty() ? 0 : kExitFailure;
}

} // namespace krt550
