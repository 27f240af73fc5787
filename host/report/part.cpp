#include "host/report/report.h"
#include "host/report/report_door.h"

extern "C" Q_DECL_EXPORT const krt550::ReportDoor* krt550_report() {
    static constexpr krt550::ReportDoor kDoor{.writeReport = krt550::WriteReport, .readRecord = krt550::ReadRecord};
    return &kDoor;
}
