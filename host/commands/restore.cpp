#include "host/backup/restore.h"
#include "host/backup/backup_file.h"
#include "host/backup/drive_at_rest.h"
#include "host/commands/command.h"
#include "host/commands/command_drive.h"
#include "host/tool.h"

#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace krt550 {
namespace {

constexpr CommandOption kRestoreOptions[] = {kDriveOption,
                                      kParametersOption,
                                      kMacrosOption,
                                      kRecordOption,
                                      {"yes", nullptr, "writes without asking, for scripts"}};
constexpr CommandUsage kRestoreUsage = {
    "restore FILE",
    "Writes the settings of a backup into the drive: shows what differs, asks, writes and reads back. It writes only\n"
    "while the motor stands, the drive is switched off and no service mode runs. When one value is refused, or Ctrl+C\n"
    "is pressed, what has been written is taken back in reverse order. Commands, the parameter lock, the serial line\n"
    "and the type code of the power part are never written.\n",
    "0 the drive holds the settings of the backup; 1 it does not: refused, not answering, not at rest, or\n"
    "not wanted; 2 a wrong option, an unusable file, or nobody to ask.",
    kRestoreOptions,
    1,
    1};

/// Whether the person at the terminal types yes; anything else is a no, and so is Ctrl+C.
bool Agrees(const CCommandDrive& drive, std::size_t count) {
    std::fputs(
        qPrintable(QStringLiteral("Write %1? [yes/no] ")
                       .arg(count == 1 ? QStringLiteral("this value") : QStringLiteral("these %1 values").arg(count))),
        stdout);
    std::fflush(stdout);
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, -1) <= 0 || drive.IsInterrupted())
        return false;
    char answer[16] = {};
    const ssize_t length = read(STDIN_FILENO, answer, sizeof answer - 1);
    const QByteArray text = QByteArray(answer, int(std::max<ssize_t>(length, 0))).trimmed().toLower();
    return text == "yes" || text == "y";
}

int Run(CCommandDrive& drive, const CCommandLine& line, CRestore& restore) {
    std::fflush(stdout);
    bool goesOn = true;
    while (goesOn) {
        if (drive.IsInterrupted())
            restore.Stop(QStringLiteral("interrupted"));
        goesOn = restore.Step();
    }
    const QStringList told = restore.Describe();
    if (!restore.HasSucceeded())
        return line.Complain(told.join(QLatin1Char('\n')), kExitFailure);
    Print(told.first());
    return 0;
}

} // namespace

int RunRestoreCommand(const QStringList& arguments) {
    const CCommandLine line(kRestoreUsage, arguments);
    if (const auto end = line.GetEnd())
        return *end;
    if (!line.Has("yes") && !isatty(STDIN_FILENO))
        return line.Complain(QStringLiteral("there is no terminal to ask at; --yes writes without asking"), kExitUsage);
    CCommandDrive drive(line);
    if (const auto end = drive.Describe())
        return *end;
    const QString file = line.GetArguments().first();
    QStringList errors;
    const auto backup = ReadBackupFile(file, drive.Described(), errors);
    if (!backup)
        return line.Complain(errors.join(QLatin1Char('\n')), kExitUsage);
    if (const auto end = drive.ConnectRecorded())
        return *end;
    CRestore restore(drive.Drive(), drive.Link(), drive.Parameters());
    if (!restore.Plan(backup->values, errors))
        return line.Complain(errors.join(QLatin1Char('\n')), kExitFailure);
    for (const auto& [reg, reason] : backup->unread)
        Print(QStringLiteral("stays as it is: %1 (no value in the backup: %2)")
                  .arg(DisplayName(reg, drive.Described()), reason));
    for (const auto& [reg, reason] : restore.GetLeftAlone())
        Print(QStringLiteral("stays as it is: %1 (%2)").arg(DisplayName(reg, drive.Described()), reason));
    for (const CRestore::Value& value : restore.GetValues())
        Print(ChangeText(value.change, drive.Parameters()));
    if (restore.GetValues().empty()) {
        Print(QStringLiteral("Nothing has to be written."));
        return 0;
    }
    if (const QString reason = WhyNotAtRest(drive.Drive(), drive.Link(), drive.Parameters()); !reason.isEmpty())
        return line.Complain(reason, kExitFailure);
    if (!line.Has("yes") && !Agrees(drive, restore.GetValues().size()))
        return line.Complain(QStringLiteral("nothing was written"), kExitFailure);
    return drive.End(Run(drive, line, restore));
}

} // namespace krt550
