#include "host/connect_drive.h"

#include "drive/drive_name.h"
#include "host/link/modbus_connection.h"
#include "host/simulated_connection.h"

namespace krt550 {

std::unique_ptr<CConnection> ConnectDrive(const QString& text, DriveFiles files, const QString& wizardDirectory,
                                          QString& error) {
    // The information names a file in the wizard directory, as a host does that knows where its module lies.
    const QString wizardFile = wizardDirectory + QLatin1String("/KRT550Wizard.so");
    if (IsOnWire(text)) {
        std::optional<WirePlace> place = ParseWirePlace(text, error);
        if (place && FindAddress(*place, error))
            return std::make_unique<CModbusConnection>(*place, std::move(files.parameters), wizardFile);
        error = QStringLiteral("drive \"%1\": %2").arg(text, error);
        return nullptr;
    }
    const std::optional<DriveName> name = ParseDriveName(text, error);
    if (!name)
        return nullptr;
    if (name->kind != QLatin1String("sim")) {
        error = QStringLiteral("drive \"%1\": there is no such drive; the drives are: sim, modbus-tcp, modbus-rtu")
                    .arg(text);
        return nullptr;
    }
    auto drive = MakeNamedDrive(text, std::move(files), wizardFile, error);
    return drive ? std::make_unique<CSimulatedConnection>(std::move(drive)) : nullptr;
}

} // namespace krt550
