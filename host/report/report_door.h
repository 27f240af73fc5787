#pragma once

#include "host/report/record_reader.h"

namespace krt550 {

/// What the commands ask of the records: see WriteReport and ReadRecord.
struct ReportDoor {
    bool (*writeReport)(const QString& record, const QString& output, QString& error);
    std::optional<std::vector<RecordedSession>> (*readRecord)(const QString& path, QString& error);
};

} // namespace krt550

/// The part "report".
extern "C" const krt550::ReportDoor* krt550_report();
