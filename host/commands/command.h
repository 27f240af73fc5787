#pragma once

#include <QStringList>

namespace krt550 {

/// What the program does when its first argument is a word and no option: one file each in this directory.
struct ToolCommand {
    const char* name;
    const char* help; ///< one line
    /// `arguments` begin with the program's and the command's name. Returns the exit status.
    int (*run)(const QStringList& arguments);
};

/// Null when there is no such command.
const ToolCommand* FindCommand(const QString& name);

/// A line for each command.
QString CommandHelp();

int RunBackupCommand(const QStringList& arguments);
int RunCompareCommand(const QStringList& arguments);
int RunGetCommand(const QStringList& arguments);
int RunListCommand(const QStringList& arguments);
int RunPlayCommand(const QStringList& arguments);
int RunRecordCommand(const QStringList& arguments);
int RunReportCommand(const QStringList& arguments);
int RunRestoreCommand(const QStringList& arguments);
int RunSetCommand(const QStringList& arguments);
int RunWizardCommand(const QStringList& arguments);

} // namespace krt550
