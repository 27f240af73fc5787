#include "host/record/record_place.h"

#include <QDir>
#include <QStandardPaths>

namespace krt550 {

QString RecordPlace(const QString& drive, QDate day) {
    constexpr int kLongestName = 100;
    QString name;
    for (const QChar c : drive.left(kLongestName)) {
        const bool isUsual = c < QChar(128) && (c.isLetterOrNumber() || QStringLiteral(".=_").contains(c));
        if (isUsual || !name.endsWith(u'-'))
            name += isUsual ? c : QChar(u'-');
    }
    const QDir directory(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QLatin1String("/records"));
    directory.mkpath(QStringLiteral("."));
    return directory.filePath(QStringLiteral("%1_%2.record").arg(name, day.toString(Qt::ISODate)));
}

} // namespace krt550
