#include "host/backup/backup_file.h"

#include <QFileInfo>
#include <QSaveFile>

namespace krt550 {

bool WriteBackupFile(const QString& path, const QByteArray& text, QString& error) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    error = QStringLiteral("%1: cannot be written: %2").arg(path, file.errorString());
    return false;
}

std::optional<ParameterValues> ReadBackupFile(const QString& path, std::span<const ParameterDescription> parameters,
                                              QStringList& errors) {
    constexpr qint64 kLargest = 4 * 1024 * 1024;
    QFile file(path);
    QString problem;
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        problem = QStringLiteral("it is no file");
    else if (!file.open(QIODevice::ReadOnly))
        problem = QStringLiteral("cannot be read: %1").arg(file.errorString());
    else if (file.size() > kLargest)
        problem = QStringLiteral("it is too large for a backup");
    if (problem.isEmpty())
        return ParseBackup(file.readAll(), path, parameters, errors);
    errors.append(QStringLiteral("%1: %2").arg(path, problem));
    return std::nullopt;
}

} // namespace krt550
