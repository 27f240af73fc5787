#pragma once

#include "host/backup/parameter_values.h"

#include <QDateTime>
#include <QStringList>

namespace krt550 {

/// Where a backup comes from, for whoever reads it.
struct BackupOrigin {
    QString drive; ///< as it was connected
    QDateTime read;
    QString program;
};

/// The text of a backup, as docs/backup.md describes it; `parameters` in the order of its lines.
QByteArray BackupText(const ParameterValues& values, std::span<const ParameterDescription> parameters,
                      const BackupOrigin& origin);

/// Reads the text of a backup. `parameters` are those that the drive's description knows; `fileName` is used in the
/// errors, one for each bad line: "FILE:LINE: what is wrong". Nothing is returned when there was any.
std::optional<ParameterValues> ParseBackup(const QByteArray& text, const QString& fileName,
                                           std::span<const ParameterDescription> parameters, QStringList& errors);

/// Writes a file as a whole or not at all. False, and the reason in `error`, when it cannot be written.
bool WriteBackupFile(const QString& path, const QByteArray& text, QString& error);

/// ParseBackup of a file of at most 4 MB.
std::optional<ParameterValues> ReadBackupFile(const QString& path, std::span<const ParameterDescription> parameters,
                                              QStringList& errors);

} // namespace krt550
