#pragma once

#include <QVariantList>

namespace krt550 {

/// The tables that rows are appended to; docs/record.md tells what their columns mean.
enum class RecordTable { Parameter, ValueText, Value, Event, Outcome, Sample, Gap };

/// One row, without the session that every row begins with.
struct RecordRow {
    RecordTable table;
    QVariantList values;
};

/// What is known of a session when it begins.
struct RecordSession {
    QString drive;   ///< as --drive names it
    QString program; ///< name and version
    QString started; ///< wall time, ISO 8601 with its offset from UTC
};

} // namespace krt550
