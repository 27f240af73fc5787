#pragma once

#include "host/report/findings.h"

namespace krt550 {

/// The seven steps of basic commissioning: which were done, only seen, or left out.
std::vector<StepLine> FindSteps(const std::vector<RecordedSession>& sessions);

} // namespace krt550
