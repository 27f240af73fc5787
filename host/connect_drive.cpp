#include "host/connect_drive.h"

#include "drive/drive_name.h"
#include "host/simulated_connection.h"

namespace krt550 {

std::unique_ptr<CConnection> ConnectDrive(const QString& text, DriveFiles files, const QString& wizardDirectory,
                                          QString& error) {
    const std::optional<DriveName> name = ParseDriveName(text, error);
    if (!name)
        return nullptr;
    if (name->kind != QLatin1String("sim")) {
        error = QStringLiteral("drive \"%1\": there is no such drive; the drives are: sim").arg(text);
        return nullptr;
    }
    // The information names a file in the wizard directory, as a host does that knows where its module lies.
    auto drive = MakeNamedDrive(text, std::move(files), wizardDirectory + QLatin1String("/KRT550Wizard.so"), error);
    return drive ? std::make_unique<CSimulatedConnection>(std::move(drive)) : nullptr;
}

} // namespace krt550
