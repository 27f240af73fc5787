#pragma once

#include "host/report/record_reader.h"

#include <QDateTime>

namespace krt550 {

/// The moment that lies `milliseconds` after a session began, by the clock of the place where it was.
inline QDateTime Moment(const RecordedSession& session, qint64 milliseconds) {
    return QDateTime::fromString(session.started, Qt::ISODateWithMs).addMSecs(milliseconds);
}

inline QString TimeOfDay(const RecordedSession& session, qint64 milliseconds) {
    return Moment(session, milliseconds).toString(QStringLiteral("HH:mm:ss"));
}

inline QString Date(const RecordedSession& session) {
    return Moment(session, 0).toString(QStringLiteral("yyyy-MM-dd"));
}

inline QString DateAndTime(const RecordedSession& session, qint64 milliseconds) {
    return Moment(session, milliseconds).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace krt550
