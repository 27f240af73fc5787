#include "drive/named_drive.h"

#include "drive/drive_name.h"
#include "drive/field_exciter.h"
#include "drive/fieldbus_adapter.h"
#include "drive/motor_options.h"
#include "drive/motor_sets.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

/// An option of the drive with a word for a value.
struct DriveOption {
    const char* name;
    QString (*choices)();
    /// False for a value that is none. A null drive is only a question.
    bool (*apply)(const QString& value, CSimulatedHostDrive* drive);
};

template <class Value> struct Choice {
    const char* name;
    Value value;
};

template <class Value, std::size_t Count>
const Value* Find(const QString& name, const Choice<Value> (&choices)[Count]) {
    const auto* const found =
        std::ranges::find_if(choices, [&name](const auto& choice) { return name == QLatin1String(choice.name); });
    return found == std::end(choices) ? nullptr : &found->value;
}

bool MountFeedback(const QString& value, CSimulatedHostDrive* drive) {
    constexpr Choice<FeedbackDevice> kDevices[] = {
        {"encoder", FeedbackDevice::Encoder}, {"tacho", FeedbackDevice::Tacho}, {"none", FeedbackDevice::None}};
    const FeedbackDevice* device = Find(value, kDevices);
    if (device && drive)
        drive->GetDrive().GetFeedback().device = *device;
    return device;
}

bool MountAdapter(const QString& value, CSimulatedHostDrive* drive) {
    AdapterType type = AdapterType::None;
    const bool known = FindAdapter(value, type);
    if (known && drive)
        drive->GetDrive().MountAdapter(type);
    return known;
}

bool MountExciter(const QString& value, CSimulatedHostDrive* drive) {
    FieldExciter exciter;
    const bool known = ParseExciter(value, exciter);
    if (known && drive)
        drive->GetDrive().GetExciter() = exciter;
    return known;
}

bool ConnectPartner(const QString& value, CSimulatedHostDrive* drive) {
    const MotorSet* motor = FindMotorSet(value);
    if (motor && drive)
        drive->ConnectPartner(*motor);
    return motor;
}

bool ConnectSlave(const QString& value, CSimulatedHostDrive* drive) {
    constexpr Choice<SlaveWiring> kWirings[] = {{"parallel", SlaveWiring::Parallel}, {"series", SlaveWiring::Series}};
    const SlaveWiring* wiring = Find(value, kWirings);
    if (wiring && drive)
        drive->GetDrive().GetTwelvePulse().GetSlave().wiring = *wiring;
    return wiring;
}

constexpr DriveOption kOptions[] = {
    {"feedback", [] { return QStringLiteral("encoder, tacho, none"); }, MountFeedback},
    {"adapter", AdapterNames, MountAdapter},
    {"exciter", [] { return ExciterNames() + QStringLiteral(", and the external ones @1 to @32"); }, MountExciter},
    {"partner", MotorSetNames, ConnectPartner},
    {"slave", [] { return QStringLiteral("parallel, series"); }, ConnectSlave},
};

const DriveOption* FindOption(const QString& name) {
    const auto* const found =
        std::ranges::find_if(kOptions, [&name](const DriveOption& known) { return name == QLatin1String(known.name); });
    return found == std::end(kOptions) ? nullptr : found;
}

/// The first thing in the name that the simulated drive does not know; empty when there is none.
QString UnknownTo(const DriveName& name) {
    if (!name.motor.isEmpty() && !FindMotorSet(name.motor))
        return QStringLiteral("motor \"%1\"; its motors are: %2").arg(name.motor, MotorSetNames());
    for (const auto& [option, value] : name.options) {
        const std::optional<Terminal> terminal = ParseTerminal(option);
        const DriveOption* known = FindOption(option);
        if (!known && !CMotorOptions::Knows(option) && !(terminal && terminal->IsInput()))
            return QStringLiteral("option \"%1\"").arg(option);
        if (known && !known->apply(value, nullptr))
            return QStringLiteral("%1 \"%2\"; there are: %3").arg(option, value, known->choices());
    }
    return {};
}

/// Mounts, wires and disturbs the drive as the name says. False, with the reason in `error`, for what is no level or
/// no fault.
bool Furnish(CSimulatedHostDrive& drive, const DriveName& name, QString& error) {
    for (const auto& [option, value] : name.options)
        if (const DriveOption* known = FindOption(option))
            known->apply(value, &drive);
    for (const auto& [option, value] : name.options) {
        const std::optional<Terminal> terminal = ParseTerminal(option);
        const std::optional<double> level = terminal ? ParseTerminalValue(*terminal, value, error) : 0;
        if (!level) {
            error = QStringLiteral("%1: %2").arg(option, error);
            return false;
        }
        if (terminal)
            drive.GetDrive().SetTerminal(*terminal, *level);
    }
    for (const QString& fault : name.faults)
        if (!drive.SetFaultMode(fault, error))
            return false;
    return true;
}

} // namespace

QString OrBesideProgram(const QString& asked, const char* relativePath) {
    if (!asked.isEmpty())
        return asked;
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(relativePath));
}

std::optional<DriveFiles> ReadDriveFiles(const QString& parameterFile, const QString& macroFile, QStringList& errors) {
    auto parameters = ReadDriveDescriptionFile(parameterFile, errors);
    if (!parameters)
        return std::nullopt;
    QString macrosFrom = macroFile;
    if (macrosFrom.isEmpty()) {
        const QString beside = QFileInfo(parameterFile).dir().filePath(QStringLiteral("KRT550.macros"));
        if (!QFileInfo::exists(beside))
            return DriveFiles{std::move(*parameters), {}};
        macrosFrom = beside;
    }
    auto macros = ReadMacroFile(macrosFrom, *parameters, errors);
    if (!macros)
        return std::nullopt;
    return DriveFiles{std::move(*parameters), std::move(*macros)};
}

std::unique_ptr<CSimulatedHostDrive> MakeNamedDrive(const QString& text, DriveFiles files, const QString& wizardFile,
                                                    QString& error) {
    const std::optional<DriveName> name = ParseDriveName(text, error);
    if (!name)
        return nullptr;
    const auto refuse = [&](const QString& reason) {
        error = QStringLiteral("drive \"%1\": %2").arg(text, reason);
        return nullptr;
    };
    if (const QString unknown = UnknownTo(*name); !unknown.isEmpty())
        return refuse(QStringLiteral("the simulated drive has no %1").arg(unknown));
    CMotorOptions options(name->motor.isEmpty() ? DefaultMotorSet() : *FindMotorSet(name->motor));
    for (const auto& [option, value] : name->options)
        if (CMotorOptions::Knows(option) && !options.Set(option, value, error))
            return refuse(error);
    const MotorSet motor = options.GetMotor();
    auto drive = std::make_unique<CSimulatedHostDrive>(std::move(files.parameters), wizardFile, &motor);
    drive->GetDrive().SetMacros(std::move(files.macros));
    if (!Furnish(*drive, *name, error))
        return refuse(error);
    return drive;
}

QString NamedDriveHelp() {
    const QString text = QStringLiteral(
        "The simulated drive's motors: %1. Its options: feedback=encoder (default), tacho or none;\n"
        "adapter=%4 is its fieldbus adapter;\n"
        "exciter=TYPE or TYPE@NODE the field exciter that is mounted (%5),\n"
        "an external one set to node 21 or to that one;\n"
        "partner=MOTOR a second drive on its drive-to-drive link, set up as a follower: node 2, mailbox -1 received\n"
        "(control word, speed reference), mailbox 2 transmitted (status word, speed); slave=parallel or series a "
        "12-pulse\n"
        "slave converter with node 31; fault=NAME, as often as needed; DI1=on, AI1=5, AI2=12mA and so on for what "
        "lies\n"
        "at its terminals from the start; and what is to be different about the motor:\n%2\nIts faults:\n%3\n");
    return text.arg(MotorSetNames(), CMotorOptions::Help(), FaultModeHelp(), AdapterNames(), ExciterNames());
}

} // namespace krt550
