#pragma once

#include "drive/fault_record.h"

namespace krt550 {

class CRegisterFile;

/// Fills a fault record's fields from the registers as they are at the moment of a fault. `milliseconds` is the
/// drive's time since it was powered up. A register that the drive does not have leaves its field without a value.
FaultFields CaptureFault(const CRegisterFile& registers, quint16 code, qint64 milliseconds);

} // namespace krt550
