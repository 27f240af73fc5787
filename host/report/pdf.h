#pragma once

#include "host/report/findings.h"

class QIODevice;

namespace krt550 {

/// Writes the report as PDF, A4. False when the device does not take it.
bool WritePdf(const Findings& findings, QIODevice& output);

} // namespace krt550
