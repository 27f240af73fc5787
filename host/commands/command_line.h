#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>

#include <optional>
#include <span>

namespace krt550 {

struct CommandOption {
    const char* name;
    const char* value; ///< what stands for it in --help; null: the option takes none
    const char* help;
};

/// What a command is called with, and what its --help says.
struct CommandUsage {
    const char* synopsis; ///< "backup FILE"
    const char* help;     ///< what it does
    const char* statuses; ///< what its exit statuses mean
    std::span<const CommandOption> options;
    int fewest = 0; ///< arguments that are no options
    int most = 0;
};

/// The command line of a subcommand. While it lives there is a QCoreApplication.
class CCommandLine {
public:
    /// `arguments` begin with the program's and the command's name.
    CCommandLine(const CommandUsage& usage, const QStringList& arguments);

    /// What the program ends with at once: --help has been shown, or the arguments are wrong, which has been told.
    std::optional<int> GetEnd() const { return m_end; }
    const QStringList& GetArguments() const { return m_arguments; }
    bool Has(const char* option) const { return m_parser.isSet(QLatin1String(option)); }
    /// Empty when the option was not given.
    QString Value(const char* option) const { return m_parser.value(QLatin1String(option)); }

    /// Tells what is wrong and returns the exit status.
    int Complain(const QString& text, int status) const;

private:
    QString FindProblem() const;
    QString Help() const;

    const CommandUsage& m_usage;
    QByteArray m_program;
    char* m_argv[2];
    int m_argc = 1;
    QCoreApplication m_application;
    QCommandLineParser m_parser;
    QStringList m_arguments;
    std::optional<int> m_end;
};

/// Prints a line.
void Print(const QString& line);

/// Rows as text in columns, as wide as they have to be.
void PrintTable(const QList<QStringList>& rows);

} // namespace krt550
