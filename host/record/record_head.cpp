#include "host/record/record_head.h"

#include "host/record/record_schema.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace krt550 {
namespace {

// Head of a database on the disk: the bytes of its numbers, and where they begin.
constexpr qsizetype kHeadBytes = 100;
constexpr qsizetype kVersionPlace = 60;
constexpr qsizetype kApplicationPlace = 68;

} // namespace

bool IsPlainlyRecord(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) || file.isSequential())
        return false;
    const QByteArray head = file.read(kHeadBytes);
    const auto number = [&head](qsizetype place) { return qFromBigEndian<quint32>(head.constData() + place); };
    return head.isEmpty()
               ? QFileInfo(path).isFile()
               : head.size() == kHeadBytes && head.startsWith("SQLite format 3") &&
                     number(kVersionPlace) == kRecordVersion && number(kApplicationPlace) == kRecordApplicationId;
}

} // namespace krt550
