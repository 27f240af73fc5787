#include "host/options.h"

#include "drive/named_drive.h"
#include "host/commands/command.h"
#include "host/link/wire_place.h"
#include "host/play/vocabulary.h"

#include <QCommandLineParser>

namespace krt550 {
namespace {

struct OptionDef {
    const char* name;
    const char* value; ///< what stands for it in --help; null: the option takes none
    QString ToolOptions::*target;
    const char* help;
};

constexpr OptionDef kOptions[] = {
    {"drive", "NAME", &ToolOptions::drive,
     "drive to connect at once: sim, sim:MOTOR, sim:MOTOR,OPTION=VALUE,...; modbus-tcp:HOST:PORT[,unit=N];\n"
     "modbus-rtu:DEVICE,BAUD,PARITY[,unit=N] (default: the workbench asks, the wizard alone and plays take sim)"},
    {"wizard", nullptr, nullptr, "open the commissioning wizard alone, without the workbench, and end with it"},
    {"wizard-dir", "DIR", &ToolOptions::wizardDirectory, "directory of the wizard's text and help files"},
    {"parameters", "FILE", &ToolOptions::parameterFile, "description of the drive's parameters"},
    {"macros", "FILE", &ToolOptions::macroFile, "the drive's application macros (default: beside its parameters)"},
    {"module", "FILE", &ToolOptions::moduleFile, "the wizard module"},
    {"play", "FILE", &ToolOptions::playFile,
     "play this script on the wizard instead of waiting for a person (see below)"},
    {"log", "FILE", &ToolOptions::logFile, "write one line for each drive call; - is standard output"},
    {"record", "FILE", &ToolOptions::recordFile,
     "append everything that happens to this record; none: nowhere (default: a file a drive and day in the user's "
     "data, "
     "for a play none)"},
    {"shots", "DIR", &ToolOptions::shotDirectory, "where a play's pictures go (default: the current directory)"},
    {"speed", "N", nullptr, "let the time of drive and wizard run N times faster, 1 to 1000, for somebody who watches"},
    {"help", nullptr, nullptr, "show this text"},
    {"version", nullptr, nullptr, "show the version"},
};

void AddOptions(QCommandLineParser& parser) {
    for (const OptionDef& option : kOptions)
        parser.addOption({QLatin1String(option.name), QLatin1String(option.help), QLatin1String(option.value)});
}

/// What is wrong with the value that an option was given; an empty text when nothing is.
QString TakeValue(const OptionDef& option, const QString& value, ToolOptions& options) {
    const QLatin1String name(option.name);
    // Another option in the place of a value is a value that was forgotten.
    if (value.isEmpty() || value.startsWith(QLatin1String("--")))
        return QStringLiteral("option --%1 needs a value").arg(name);
    if (option.target) {
        options.*option.target = value;
        return {};
    }
    bool ok = false;
    options.speed = value.toInt(&ok);
    return ok && options.speed >= 1 && options.speed <= 1000
               ? QString()
               : QStringLiteral("--%1 \"%2\" is not a number from 1 to 1000").arg(name, value);
}

QString TakeValues(const QCommandLineParser& parser, ToolOptions& options) {
    for (const OptionDef& option : kOptions)
        for (const QString& value : parser.values(QLatin1String(option.name)))
            if (const QString complaint = TakeValue(option, value, options); !complaint.isEmpty())
                return complaint;
    const QStringList others = parser.positionalArguments();
    return others.isEmpty() ? QString()
                            : QStringLiteral("\"%1\" is not an option; --help lists the options").arg(others.first());
}

} // namespace

bool ToolOptions::IsUnwatched() const {
    return !playFile.isEmpty() && speed == 0 && !IsOnWire(drive);
}

ToolOptions ParseOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    AddOptions(parser);
    ToolOptions options;
    if (!parser.parse(arguments))
        options.complaint = parser.errorText();
    else if (parser.isSet(QStringLiteral("help")))
        options.task = ToolOptions::Task::Help;
    else if (parser.isSet(QStringLiteral("version")))
        options.task = ToolOptions::Task::Version;
    else
        options.complaint = TakeValues(parser, options);
    options.isWizardAlone = parser.isSet(QStringLiteral("wizard")) || !options.playFile.isEmpty();
    if (options.isWizardAlone && options.drive.isEmpty())
        options.drive = QStringLiteral("sim");
    if (!options.complaint.isEmpty())
        options.task = ToolOptions::Task::Complain;
    return options;
}

QString HelpText() {
    QCommandLineParser parser;
    AddOptions(parser);
    parser.setApplicationDescription(
        QStringLiteral("The workbench for a drive: connect it, look at it, commission it."));
    const QString text = QStringLiteral(
        "\n"
        "%1"
        "--drive sim:S1,feedback=tacho,fault=missing:3016 is the motor S1 with a tacho and a drive without that\n"
        "parameter, sim:S2,R=3.1,L=0.02,J=0.1,load=10 another motor behind a machine.\n\n"
        "A log line holds, separated by tabs: time [ms], call, register, value (the raw word), outcome.\n\n"
        "However the program ends, it stops a motor under its control first and waits until it stands.\n\n"
        "Commands, each with its own --help (krt550tool COMMAND ...):\n%2\n"
        "Exit status: 0 it ran and the play did what it says; 1 a play failed, the wizard did not run, the run was\n"
        "interrupted, a stop was not confirmed, or log or record has gaps; 2 a wrong option, or a file that cannot be read or "
        "written.\n\n");
    return parser.helpText() + text.arg(NamedDriveHelp(), CommandHelp()) + PlayHelpText();
}

QString VersionText() {
    return QStringLiteral("krt550tool " KRT550_VERSION "\n");
}

} // namespace krt550
