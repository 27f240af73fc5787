#include "host/commands/command_line.h"

#include "host/tool.h"

#include <algorithm>
#include <cstdio>

namespace krt550 {

CCommandLine::CCommandLine(const CommandUsage& usage, const QStringList& arguments)
    : m_usage(usage), m_program(arguments.first().toLocal8Bit()), m_argv{m_program.data(), nullptr},
      m_application(m_argc, m_argv) {
    m_parser.addOption(QCommandLineOption(QStringLiteral("help")));
    for (const CommandOption& option : m_usage.options)
        m_parser.addOption({QLatin1String(option.name), {}, QLatin1String(option.value)});
    const bool isParsed = m_parser.parse(QStringList{arguments.first()} + arguments.mid(2));
    m_arguments = m_parser.positionalArguments();
    if (isParsed && Has("help")) {
        std::fputs(Help().toLocal8Bit().constData(), stdout);
        m_end = 0;
    } else if (const QString problem = isParsed ? FindProblem() : m_parser.errorText(); !problem.isEmpty()) {
        m_end = Complain(problem, kExitUsage);
    }
}

QString CCommandLine::FindProblem() const {
    for (const CommandOption& option : m_usage.options)
        for (const QString& value : m_parser.values(QLatin1String(option.name)))
            // Another option in the place of a value is a value that was forgotten.
            if (value.isEmpty() || value.startsWith(QLatin1String("--")))
                return QStringLiteral("option --%1 needs a value").arg(QLatin1String(option.name));
    const bool isCountGood = m_arguments.size() >= m_usage.fewest && m_arguments.size() <= m_usage.most;
    return isCountGood ? QString() : QStringLiteral("it is krt550tool %1").arg(QLatin1String(m_usage.synopsis));
}

int CCommandLine::Complain(const QString& text, int status) const {
    const QString command = QString::fromLatin1(m_usage.synopsis).section(QLatin1Char(' '), 0, 0);
    std::fflush(stdout); // where both go to one place, in the order of events
    std::fprintf(stderr, "krt550tool: %s: %s\n", qPrintable(command), text.toLocal8Bit().constData());
    return status;
}

QString CCommandLine::Help() const {
    QString text =
        QStringLiteral("krt550tool %1\n\n%2\n").arg(QLatin1String(m_usage.synopsis), QLatin1String(m_usage.help));
    for (const CommandOption& option : m_usage.options) {
        QString name = QLatin1String("--") + QLatin1String(option.name);
        if (option.value)
            name += QLatin1Char(' ') + QLatin1String(option.value);
        text += QStringLiteral("  %1 %2\n").arg(name, -18).arg(QString::fromUtf8(option.help));
    }
    return text + QStringLiteral("\nExit status: %1\n").arg(QLatin1String(m_usage.statuses));
}

void Print(const QString& line) {
    std::fputs((line + QLatin1Char('\n')).toLocal8Bit().constData(), stdout);
}

void PrintTable(const QList<QStringList>& rows) {
    std::vector<qsizetype> widths;
    for (const QStringList& row : rows)
        for (qsizetype i = 0; i < row.size(); ++i) {
            widths.resize(std::max(widths.size(), std::size_t(row.size())));
            widths[std::size_t(i)] = std::max(widths[std::size_t(i)], row[i].size());
        }
    for (const QStringList& row : rows) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i)
            line += row[i].leftJustified(widths[std::size_t(i)] + 2);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        Print(line);
    }
}

} // namespace krt550
