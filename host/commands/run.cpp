// Commands that are options of the program itself by another name.
#include "host/commands/command.h"
#include "host/tool.h"

#include <cstdio>
#include <vector>

namespace krt550 {
namespace {

constexpr const char* kPlayHelp =
    "krt550tool play FILE [OPTION ...]\n\n"
    "Acts a script out on the wizard's windows; runs without a display. It is krt550tool --play FILE: options, the\n"
    "language of plays and exit statuses stand in krt550tool --help.\n";
constexpr const char* kWizardHelp = "krt550tool wizard [OPTION ...]\n\n"
                                    "Connects the drive, opens the commissioning wizard on it and ends with the "
                                    "wizard. Options and exit statuses stand\n"
                                    "in krt550tool --help.\n";

int RunProgram(const QStringList& arguments) {
    std::vector<QByteArray> texts;
    for (const QString& argument : arguments)
        texts.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);
    return RunTool(int(texts.size()), argv.data());
}

bool AsksForHelp(const QStringList& arguments) {
    return arguments.mid(2).contains(QLatin1String("--help"));
}

} // namespace

int RunPlayCommand(const QStringList& arguments) {
    if (AsksForHelp(arguments)) {
        std::fputs(kPlayHelp, stdout);
        return 0;
    }
    if (arguments.size() < 3 || arguments[2].startsWith(QLatin1Char('-'))) {
        std::fputs("krt550tool: play: it is krt550tool play FILE [OPTION ...]\n", stderr);
        return kExitUsage;
    }
    return RunProgram(QStringList{arguments.first(), QStringLiteral("--play")} + arguments.mid(2));
}

int RunWizardCommand(const QStringList& arguments) {
    if (AsksForHelp(arguments)) {
        std::fputs(kWizardHelp, stdout);
        return 0;
    }
    return RunProgram(QStringList{arguments.first()} + arguments.mid(2));
}

} // namespace krt550
