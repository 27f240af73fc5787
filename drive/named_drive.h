#pragma once

#include "drive/macros.h"
#include "drive/simulated_host_drive.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace krt550 {

/// What a simulated drive is made of besides its name.
struct DriveFiles {
    std::vector<ParameterDescription> parameters;
    CMacroTable macros;
};

/// Reads them; an empty `macroFile` stands for KRT550.macros beside the parameters, where there is one. Nothing, with a
/// line for each thing that is wrong in `errors`, when they cannot be used.
std::optional<DriveFiles> ReadDriveFiles(const QString& parameterFile, const QString& macroFile, QStringList& errors);

/// The file that was asked for, or the one that comes with the program, at a path relative to it.
QString OrBesideProgram(const QString& asked, const char* relativePath);

/// The simulated drive that a name stands for: "sim:S2,feedback=tacho,R=3.1,DI1=on,fault=e-stop" (see DriveName).
/// `wizardFile` as CSimulatedHostDrive takes it. Null, with the reason in `error`, when there is no such drive.
std::unique_ptr<CSimulatedHostDrive> MakeNamedDrive(const QString& name, DriveFiles files, const QString& wizardFile,
                                                    QString& error);

/// Motors, options and faults of such a name, for help texts.
QString NamedDriveHelp();

} // namespace krt550
