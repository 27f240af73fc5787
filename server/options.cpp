#include "server/options.h"

#include "drive/named_drive.h"

#include <QCommandLineParser>

namespace krt550 {
namespace {

constexpr int kMostUnit = 247;
constexpr int kMostSpeed = 1000;

struct OptionDef {
    const char* name;
    const char* value; ///< what stands for it in --help; null: the option takes none
    const char* help;
};

constexpr OptionDef kOptions[] = {
    {"motor", "NAME", "motor that the drive feeds (see below)"},
    {"tcp", "[ADDRESS:]PORT", "serve on TCP; without an address on 127.0.0.1, for this machine alone"},
    {"rtu", "DEVICE[,19200,8E1]", "serve on a serial line"},
    {"unit", "N", "the drive's unit, 1 to 247 (default: 1)"},
    {"parameters", "FILE", "description of the drive's parameters"},
    {"macros", "FILE", "the drive's application macros (default: beside its parameters)"},
    {"speed", "N", "let the drive's time run N times faster, 1 to 1000; so must its host's"},
    {"map", nullptr, "print the register map"},
    {"help", nullptr, "show this text"},
    {"version", nullptr, "show the version"},
};

void AddOptions(QCommandLineParser& parser) {
    for (const OptionDef& option : kOptions)
        parser.addOption({QLatin1String(option.name), QLatin1String(option.help), QLatin1String(option.value)});
    parser.addPositionalArgument(QStringLiteral("OPTION=VALUE"), QStringLiteral("of the simulated drive (see below)"),
                                 QStringLiteral("[OPTION=VALUE...]"));
}

/// "1502", "0.0.0.0:502", "[::1]:502". False for what is none.
bool ParsePlace(const QString& text, ServerOptions& options) {
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    QString address = text.left(std::max<qsizetype>(colon, 0));
    if (address.startsWith(QLatin1Char('[')) && address.endsWith(QLatin1Char(']')))
        address = address.mid(1, address.size() - 2);
    else if (address.contains(QLatin1Char(':')))
        return false;
    const bool local = colon < 0 || address == QLatin1String("localhost");
    bool isPort = false;
    options.port = text.mid(colon + 1).toUShort(&isPort);
    options.address = local ? QHostAddress(QHostAddress::LocalHost) : QHostAddress(address);
    return isPort && !options.address.isNull();
}

QString TakeLine(const QCommandLineParser& parser, ServerOptions& options) {
    const QString tcp = parser.value(QStringLiteral("tcp"));
    const QString rtu = parser.value(QStringLiteral("rtu"));
    if (tcp.isEmpty() == rtu.isEmpty())
        return QStringLiteral("where shall the drive be served? Give either --tcp [ADDRESS:]PORT or --rtu DEVICE");
    if (rtu.isEmpty())
        return ParsePlace(tcp, options) ? QString()
                                        : QStringLiteral("--tcp \"%1\" is not [ADDRESS:]PORT, with an address in "
                                                         "numbers and a port from 0 to 65535")
                                              .arg(tcp);
    QString error;
    options.line = ParseSerialLine(rtu, error);
    return options.line ? QString() : QStringLiteral("--rtu %1: %2").arg(rtu, error);
}

QString TakeDrive(const QCommandLineParser& parser, ServerOptions& options) {
    if (parser.isSet(QStringLiteral("motor")))
        options.drive += QLatin1Char(':') + parser.value(QStringLiteral("motor"));
    for (const QString& argument : parser.positionalArguments()) {
        if (!argument.contains(QLatin1Char('=')))
            return QStringLiteral("\"%1\" is neither an option nor OPTION=VALUE; --help lists them").arg(argument);
        options.drive += QLatin1Char(',') + argument;
    }
    return {};
}

QString TakeValues(const QCommandLineParser& parser, ServerOptions& options) {
    for (const QString& name : parser.optionNames())
        if (const QString value = parser.value(name); value.isEmpty() || value.startsWith(QLatin1String("--")))
            return QStringLiteral("option --%1 needs a value").arg(name);
    options.parameterFile = parser.value(QStringLiteral("parameters"));
    options.macroFile = parser.value(QStringLiteral("macros"));
    if (const QString unit = parser.value(QStringLiteral("unit")); !unit.isEmpty()) {
        const int number = unit.toInt();
        if (number < 1 || number > kMostUnit)
            return QStringLiteral("--unit \"%1\" is not a number from 1 to %2").arg(unit).arg(kMostUnit);
        options.unit = static_cast<quint8>(number);
    }
    if (const QString speed = parser.value(QStringLiteral("speed")); !speed.isEmpty()) {
        options.speed = speed.toInt();
        if (options.speed < 1 || options.speed > kMostSpeed)
            return QStringLiteral("--speed \"%1\" is not a number from 1 to %2").arg(speed).arg(kMostSpeed);
    }
    const QString complaint = TakeLine(parser, options);
    return complaint.isEmpty() ? TakeDrive(parser, options) : complaint;
}

} // namespace

ServerOptions ParseServerOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    AddOptions(parser);
    ServerOptions options;
    if (!parser.parse(arguments))
        options.complaint = parser.errorText();
    else if (parser.isSet(QStringLiteral("help")))
        options.task = ServerOptions::Task::Help;
    else if (parser.isSet(QStringLiteral("version")))
        options.task = ServerOptions::Task::Version;
    else if (parser.isSet(QStringLiteral("map")))
        options.task = ServerOptions::Task::Map;
    else
        options.complaint = TakeValues(parser, options);
    if (!options.complaint.isEmpty())
        options.task = ServerOptions::Task::Complain;
    return options;
}

QString ServerHelpText() {
    QCommandLineParser parser;
    AddOptions(parser);
    parser.setApplicationDescription(
        QStringLiteral("Serves a simulated drive on Modbus, in real time, until Ctrl+C or a request to terminate."));
    return parser.helpText() + QLatin1Char('\n') + NamedDriveHelp() +
           QStringLiteral(
               "krt550sim --motor S2,feedback=tacho --tcp 1502 and krt550sim --motor S2 feedback=tacho --tcp 1502 are\n"
               "the same. Modbus knows no passwords: whoever reaches the port or the line can command the drive.\n\n"
               "Exit status: 0 it was asked to end, and the motor stands; 1 its line has gone, or the motor still\n"
               "turned when it was asked to end again; 2 a wrong option, an unusable file, no such device or port.\n");
}

} // namespace krt550
