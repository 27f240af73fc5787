#pragma once

#include <QStringList>

namespace krt550 {

/// What the program does when its first argument is a word and no option: one file each in this directory, or an option
/// of the program by another name.
struct ToolCommand {
    const char* name;
    const char* help; ///< one line
    /// `arguments` begin with the program's and the command's name. Returns the exit status. Null: see `option`.
    int (*run)(const QStringList& arguments);
    /// What stands in the place of the command's name then; null: nothing.
    const char* option = nullptr;
};

/// Null when there is no such command.
const ToolCommand* FindCommand(const QString& name);

/// The arguments of a command that is an option by another name, as they are without it.
QStringList AsOptions(const ToolCommand& command, QStringList arguments);

/// A line for each command.
QString CommandHelp();

int RunBackupCommand(const QStringList& arguments);
int RunCompareCommand(const QStringList& arguments);
int RunGetCommand(const QStringList& arguments);
int RunListCommand(const QStringList& arguments);
int RunRecordCommand(const QStringList& arguments);
int RunReportCommand(const QStringList& arguments);
int RunRestoreCommand(const QStringList& arguments);
int RunSetCommand(const QStringList& arguments);

} // namespace krt550
