#include "drive/named_drive.h"

#include "drive/drive_name.h"
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

struct Feedback {
    const char* name;
    FeedbackDevice device;
};

constexpr Feedback kFeedbacks[] = {
    {"encoder", FeedbackDevice::Encoder}, {"tacho", FeedbackDevice::Tacho}, {"none", FeedbackDevice::None}};

const Feedback* FindFeedback(const QString& name) {
    const auto* const found =
        std::ranges::find_if(kFeedbacks, [&name](const Feedback& known) { return name == QLatin1String(known.name); });
    return found == std::end(kFeedbacks) ? nullptr : found;
}

/// The first thing in the name that the simulated drive does not know; empty when there is none.
QString UnknownTo(const DriveName& name) {
    if (!name.motor.isEmpty() && !FindMotorSet(name.motor))
        return QStringLiteral("motor \"%1\"; its motors are: %2").arg(name.motor, MotorSetNames());
    for (const auto& [option, value] : name.options) {
        const std::optional<Terminal> terminal = ParseTerminal(option);
        if (option != QLatin1String("feedback") && !CMotorOptions::Knows(option) && !(terminal && terminal->IsInput()))
            return QStringLiteral("option \"%1\"").arg(option);
        if (option == QLatin1String("feedback") && !FindFeedback(value))
            return QStringLiteral("feedback \"%1\"; there are: encoder, tacho, none").arg(value);
    }
    return {};
}

/// Mounts, wires and disturbs the drive as the name says. False, with the reason in `error`, for what is no level or
/// no fault.
bool Furnish(CSimulatedHostDrive& drive, const DriveName& name, QString& error) {
    for (const auto& [option, value] : name.options)
        if (const Feedback* feedback = FindFeedback(value); feedback && option == QLatin1String("feedback"))
            drive.GetDrive().GetFeedback().device = feedback->device;
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
        "fault=NAME, as often as needed; DI1=on, AI1=5, AI2=12mA and so on for what lies at its terminals\n"
        "from the start; and what is to be different about the motor:\n%2\nIts faults:\n%3\n");
    return text.arg(MotorSetNames(), CMotorOptions::Help(), FaultModeHelp());
}

} // namespace krt550
