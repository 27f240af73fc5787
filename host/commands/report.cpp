#include "host/commands/command.h"
#include "host/part.h"
#include "host/report/report_door.h"
#include "host/tool.h"

#include <QCommandLineParser>
#include <QGuiApplication>

#include <cstdio>

namespace krt550 {
namespace {

constexpr const char* kHelp =
    "krt550tool report RECORD -o FILE.pdf|FILE.html\n\n"
    "Makes a commissioning report of a record, as PDF or as one HTML file: the drive and its motor, the steps, every\n"
    "run with its trace, what was found and what was left, faults, open points, and a place for signatures. It covers\n"
    "the sessions with the drive of the last one. The record is not changed.\n\n"
    "Exit status: 0 the report is written; 2 a wrong option, or a file that cannot be read or written.\n";

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
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")}, {}, QStringLiteral("FILE")});
    parser.addOption(QCommandLineOption(QStringLiteral("help")));
    if (!parser.parse(QStringList{arguments.first()} + arguments.mid(2)))
        return Complain(QLatin1String("report: ") + parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    const QString output = parser.value(QStringLiteral("o"));
    if (parser.positionalArguments().size() != 1 || output.isEmpty())
        return Complain(QStringLiteral("report: it is krt550tool report RECORD -o FILE.pdf or FILE.html"));
    QString error;
    auto* const door = LoadPart<decltype(krt550_report)>("report", error);
    const bool well = door && door()->writeReport(parser.positionalArguments().first(), output, error);
    return well ? 0 : Complain(error);
}

} // namespace krt550
