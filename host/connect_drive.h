#pragma once

#include "drive/named_drive.h"
#include "host/connection.h"

#include <QString>

#include <memory>

namespace krt550 {

/// Connects the drive that `name` stands for (see DriveName). `wizardDirectory` is where the drive's information
/// leads the wizard to. Null, and the reason in `error`, when there is no such drive.
std::unique_ptr<CConnection> ConnectDrive(const QString& name, DriveFiles files, const QString& wizardDirectory,
                                          QString& error);

} // namespace krt550
