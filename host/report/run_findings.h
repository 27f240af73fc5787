#pragma once

#include "host/report/findings.h"

namespace krt550 {

class CDriveValues;

/// Every run of a session with what came of it.
std::vector<RunFinding> FindRuns(const RecordedSession& session, const CDriveValues& values);

} // namespace krt550
