#include "host/connect_drive.h"

#include "drive/motor_sets.h"
#include "host/drive_name.h"
#include "host/motor_options.h"
#include "host/simulated_connection.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

/// An option of the drive with a word for a value.
struct DriveOption {
    const char* name;
    QString (*choices)();
    /// False for a value that is none. A null connection is only a question.
    bool (*apply)(const QString& value, CSimulatedConnection* connection);
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

bool MountFeedback(const QString& value, CSimulatedConnection* connection) {
    constexpr Choice<FeedbackDevice> kDevices[] = {
        {"encoder", FeedbackDevice::Encoder}, {"tacho", FeedbackDevice::Tacho}, {"none", FeedbackDevice::None}};
    const FeedbackDevice* device = Find(value, kDevices);
    if (device && connection)
        connection->SetFeedback(*device);
    return device;
}

bool MountAdapter(const QString& value, CSimulatedConnection* connection) {
    AdapterType type = AdapterType::None;
    const bool known = FindAdapter(value, type);
    if (known && connection)
        connection->MountAdapter(type);
    return known;
}

bool ConnectPartner(const QString& value, CSimulatedConnection* connection) {
    const MotorSet* motor = FindMotorSet(value);
    if (motor && connection)
        connection->ConnectPartner(*motor);
    return motor;
}

bool ConnectSlave(const QString& value, CSimulatedConnection* connection) {
    constexpr Choice<SlaveWiring> kWirings[] = {{"parallel", SlaveWiring::Parallel}, {"series", SlaveWiring::Series}};
    const SlaveWiring* wiring = Find(value, kWirings);
    if (wiring && connection)
        connection->ConnectSlave(*wiring);
    return wiring;
}

constexpr DriveOption kOptions[] = {
    {"feedback", [] { return QStringLiteral("encoder, tacho, none"); }, MountFeedback},
    {"adapter", AdapterNames, MountAdapter},
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
        if (const DriveOption* known = FindOption(option))
            known->apply(value, connection.get());
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
