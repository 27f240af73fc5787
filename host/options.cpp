#include "host/options.h"

#include "drive/fault_modes.h"
#include "drive/motor_sets.h"
#include "host/motor_options.h"
#include "host/play/vocabulary.h"

#include <iterator>

namespace krt550 {
namespace {

struct OptionDef {
    const char* name;
    const char* value;
    QString ToolOptions::*target;
    const char* help;
};

constexpr OptionDef kOptions[] = {
    {"--drive", "NAME", &ToolOptions::drive, "drive to connect: sim (default), sim:MOTOR, sim:MOTOR,OPTION=VALUE,..."},
    {"--wizard-dir", "DIR", &ToolOptions::wizardDirectory, "directory of the wizard's text and help files"},
    {"--parameters", "FILE", &ToolOptions::parameterFile, "description of the drive's parameters"},
    {"--module", "FILE", &ToolOptions::moduleFile, "the wizard module"},
    {"--play", "FILE", &ToolOptions::playFile, "play this script instead of waiting for a person (see below)"},
    {"--log", "FILE", &ToolOptions::logFile, "write one line for each drive call; - is standard output"},
    {"--shots", "DIR", &ToolOptions::shotDirectory, "where a play's pictures go (default: the current directory)"},
    {"--speed", "N", nullptr, "let the time of drive and wizard run N times faster, 1 to 1000"},
    {"--help", nullptr, nullptr, "show this text"},
    {"--version", nullptr, nullptr, "show the version"},
};

const OptionDef* FindOption(const QString& name) {
    for (const OptionDef& option : kOptions)
        if (name == QLatin1String(option.name))
            return &option;
    return nullptr;
}

ToolOptions Complain(const QString& text) {
    ToolOptions options;
    options.task = ToolOptions::Task::Complain;
    options.complaint = text;
    return options;
}

bool ReadSpeed(const QString& text, int& speed) {
    bool ok = false;
    speed = text.toInt(&ok);
    return ok && speed >= 1 && speed <= 1000;
}

} // namespace

ToolOptions ParseOptions(const QStringList& arguments) {
    ToolOptions options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const qsizetype equals =
            arguments[i].startsWith(QLatin1String("--")) ? arguments[i].indexOf(QLatin1Char('=')) : -1;
        const QString name = arguments[i].left(equals);
        const OptionDef* option = FindOption(name);
        if (!option)
            return Complain(QStringLiteral("unknown option \"%1\"; --help lists the options").arg(arguments[i]));
        if (!option->value) {
            if (equals >= 0)
                return Complain(QStringLiteral("option %1 takes no value").arg(name));
            options.task = name == QLatin1String("--help") ? ToolOptions::Task::Help : ToolOptions::Task::Version;
            return options;
        }
        const QString value = equals < 0 ? arguments.value(++i) : arguments[i].mid(equals + 1);
        if (value.isEmpty() || (equals < 0 && value.startsWith(QLatin1String("--"))))
            return Complain(QStringLiteral("option %1 needs a value").arg(name));
        if (option->target)
            options.*option->target = value;
        else if (!ReadSpeed(value, options.speed))
            return Complain(QStringLiteral("--speed \"%1\" is not a number from 1 to 1000").arg(value));
    }
    return options;
}

QString HelpText() {
    QString text =
        QStringLiteral("Usage: krt550tool [options]\n"
                       "Connects a drive, opens the commissioning wizard on it and ends with the wizard.\n\n");
    for (const OptionDef& option : kOptions) {
        QString head = QLatin1String("  ") + QLatin1String(option.name);
        if (option.value)
            head += QLatin1Char(' ') + QLatin1String(option.value);
        text += head.leftJustified(22) + QLatin1String(option.help) + QLatin1Char('\n');
    }
    text +=
        QStringLiteral(
            "\n"
            "The simulated drive's motors: %1. Its options: feedback=encoder (default), tacho or none; fault=NAME, as\n"
            "often as needed; and what is to be different about the motor:\n%2\n"
            "Its faults:\n%3\n"
            "--drive sim:S1,feedback=tacho,fault=missing:3016 is the motor S1 with a tacho and a drive without that\n"
            "parameter, sim:S2,R=3.1,L=0.02,J=0.1,load=10 another motor behind a machine.\n\n"
            "A log line holds, separated by tabs: time [ms], call, register, value (the raw word), outcome.\n\n"
            "Exit status: 0 the wizard ran and the play did what it says; 1 a play failed or the wizard did\n"
            "not run; 2 a wrong option, or a file that cannot be read or written.\n\n")
            .arg(MotorSetNames(), CMotorOptions::Help(), FaultModeHelp());
    return text + PlayHelpText();
}

QString VersionText() {
    return QStringLiteral("krt550tool " KRT550_VERSION "\n");
}

} // namespace krt550
