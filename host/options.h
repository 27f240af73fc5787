#pragma once

#include <QString>
#include <QStringList>

namespace krt550 {

/// What the command line asks for.
struct ToolOptions {
    enum class Task { Run, Help, Version, Complain };

    Task task = Task::Run;
    QString complaint; ///< one line, for Task::Complain

    QString drive;              ///< empty: none was named, and the workbench asks for one; the wizard alone takes "sim"
    bool isWizardAlone = false; ///< no workbench; a play always
    QString wizardDirectory;    ///< these two and moduleFile: empty = beside the program
    QString parameterFile;
    QString macroFile; ///< empty = KRT550.macros beside the parameter file, if there is one
    QString moduleFile;
    QString playFile;   ///< empty: a person works
    QString logFile;    ///< empty: none, "-": standard output
    QString recordFile; ///< empty: one a drive and day for a person, none for a play; "none": none
    QString shotDirectory = QStringLiteral(".");
    int speed = 0; ///< 0: not given

    /// A play that takes no time, because nobody wants to watch it, and the drive's time is the tool's.
    bool IsUnwatched() const;
};

/// Reads the arguments, the program's name first.
ToolOptions ParseOptions(const QStringList& arguments);

/// Text of --help; there has to be a QCoreApplication.
QString HelpText();

/// Text of --version.
QString VersionText();

} // namespace krt550
