#include "host/record/record_place.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace krt550 {

QString RecordPlace(const QString& drive, QDate day) {
    static const QRegularExpression unusual(QStringLiteral("[^A-Za-z0-9.=_]+"));
    constexpr int kLongestName = 100;
    QString name = drive.left(kLongestName);
    name.replace(unusual, QStringLiteral("-"));
    const QDir directory(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QLatin1String("/records"));
    directory.mkpath(QStringLiteral("."));
    return directory.filePath(QStringLiteral("%1_%2.record").arg(name, day.toString(Qt::ISODate)));
}

} // namespace krt550
