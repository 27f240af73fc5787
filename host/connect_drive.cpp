#include "host/connect_drive.h"

#include "host/drive_name.h"

namespace krt550 {

std::unique_ptr<CConnection> ConnectDrive(const QString& name, const std::vector<ParameterDescription>&, const QString&,
                                          QString& error) {
    const std::optional<DriveName> drive = ParseDriveName(name, error);
    if (!drive)
        return nullptr;
    error = QStringLiteral("there is no drive \"%1\"; the drives are: sim").arg(drive->kind);
    return nullptr;
}

} // namespace krt550
