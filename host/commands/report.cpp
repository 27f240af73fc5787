#include "host/report/report.h"
#include "host/commands/command.h"
#include "host/tool.h"

#include <QCommandLineParser>
#include <QGuiApplication>

#include <cstdio>

namespace krt550 {
namespace {

constexpr const char* kExplanation =
    "Makes a commissioning report of a record, as PDF or as one HTML file, by the ending of FILE: the drive and its "
    "motor, the steps, every run with its trace, what was found and what was left, faults, open points, and a place "
    "for signatures. It covers the sessions with the drive of the last one. The record is not changed.\n\n"
    "Exit status: 0 the report is written; 2 a wrong option, or a file that cannot be read or written.";

int Complain(const QString& text) {
    std::fprintf(stderr, "krt550tool: %s\n", text.toLocal8Bit().constData());
    return kExitUsage;
}

} // namespace

int RunReportCommand(const QStringList& arguments) {
    // Texts are laid out without a screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QByteArray name = arguments.first().toLocal8Bit();
    char* argv[] = {name.data(), nullptr};
    int argc = 1;
    const QGuiApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(kExplanation));
    parser.addPositionalArgument(QStringLiteral("RECORD"), QStringLiteral("the record"),
                                 QStringLiteral("report RECORD"));
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      QStringLiteral("the report: FILE.pdf or FILE.html"),
                      QStringLiteral("FILE")});
    parser.addOption({QStringLiteral("help"), QStringLiteral("show this text")});
    if (!parser.parse(QStringList{arguments.first()} + arguments.mid(2)))
        return Complain(QLatin1String("report: ") + parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
        return 0;
    }
    const QString output = parser.value(QStringLiteral("o"));
    if (parser.positionalArguments().size() != 1 || output.isEmpty())
        return Complain(QStringLiteral("report: it is krt550tool report RECORD -o FILE.pdf or FILE.html"));
    QString error;
    return WriteReport(parser.positionalArguments().first(), output, error) ? 0 : Complain(error);
}

} // namespace krt550
