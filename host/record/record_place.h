#pragma once

#include <QDate>
#include <QString>

namespace krt550 {

/// Where a session is recorded when nobody says where: one file a drive and day, in a directory of the user's data,
/// which is made when it is not there.
QString RecordPlace(const QString& drive, QDate day);

} // namespace krt550
