#include "host/connect_drive.h"

#include "drive/motor_sets.h"
#include "host/drive_name.h"
#include "host/motor_options.h"
#include "host/simulated_connection.h"

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
        FieldExciter exciter;
        if (option == QLatin1String("exciter") && !ParseExciter(value, exciter))
            return QStringLiteral("exciter \"%1\"; there are: %2, and the external ones @1 to @32")
                .arg(value, ExciterNames());
        if (option != QLatin1String("feedback") && option != QLatin1String("exciter") &&
            !CMotorOptions::Knows(option) && !(terminal && terminal->IsInput()))
            return QStringLiteral("option \"%1\"").arg(option);
        if (option == QLatin1String("feedback") && !FindFeedback(value))
            return QStringLiteral("feedback \"%1\"; there are: encoder, tacho, none").arg(value);
    }
    return {};
}

} // namespace

std::unique_ptr<CConnection> ConnectDrive(const QString& text, std::vector<ParameterDescription> parameters,
                                          CMacroTable macros, const QString& wizardDirectory, QString& error) {
    const std::optional<DriveName> name = ParseDriveName(text, error);
    if (!name)
        return nullptr;
    if (name->kind != QLatin1String("sim")) {
        error = QStringLiteral("drive \"%1\": there is no such drive; the drives are: sim").arg(text);
        return nullptr;
    }
    if (const QString unknown = UnknownTo(*name); !unknown.isEmpty()) {
        error = QStringLiteral("drive \"%1\": the simulated drive has no %2").arg(text, unknown);
        return nullptr;
    }
    CMotorOptions motor(name->motor.isEmpty() ? DefaultMotorSet() : *FindMotorSet(name->motor));
    for (const auto& [option, value] : name->options) {
        if (CMotorOptions::Knows(option) && !motor.Set(option, value, error)) {
            error = QStringLiteral("drive \"%1\": %2").arg(text, error);
            return nullptr;
        }
    }
    // The information names a file in the wizard directory, as a host does that knows where its module lies.
    auto connection = std::make_unique<CSimulatedConnection>(
        std::move(parameters), wizardDirectory + QLatin1String("/KRT550Wizard.so"), motor.GetMotor());
    for (const auto& [option, value] : name->options)
        if (const Feedback* feedback = FindFeedback(value); feedback && option == QLatin1String("feedback"))
            connection->SetFeedback(feedback->device);
    for (const auto& [option, value] : name->options)
        if (option == QLatin1String("exciter"))
            connection->MountExciter(value);
    connection->SetMacros(std::move(macros));
    for (const auto& [option, value] : name->options) {
        const std::optional<Terminal> terminal = ParseTerminal(option);
        const std::optional<double> level = terminal ? ParseTerminalValue(*terminal, value, error) : 0;
        if (!level) {
            error = QStringLiteral("drive \"%1\": %2: %3").arg(text, option, error);
            return nullptr;
        }
        if (terminal)
            connection->SetTerminal(*terminal, *level);
    }
    for (const QString& fault : name->faults) {
        error = connection->SwitchFault(fault);
        if (!error.isEmpty()) {
            error = QStringLiteral("drive \"%1\": %2").arg(text, error);
            return nullptr;
        }
    }
    return connection;
}

} // namespace krt550
