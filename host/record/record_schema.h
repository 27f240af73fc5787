#pragma once

#include "host/record/record_row.h"

#include <QStringList>

namespace krt550 {

/// Both stand in the head of the file: what it is, and which tables it has.
inline constexpr int kRecordApplicationId = 0x4b525435; // "KRT5"
inline constexpr int kRecordVersion = 1;

/// What makes an empty database a record, statement by statement.
QStringList RecordSchema();

/// Appends a row to the table; its first value is the session.
QString InsertStatement(RecordTable table);

} // namespace krt550
