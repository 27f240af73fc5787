#pragma once

#include "hostlib/export.h"

#include <QString>

namespace krt550 {

/// `value` as text with exactly `decimals` decimals and a decimal point; what rounds to 0 has no sign.
HOSTLIB_EXPORT QString dtoa(double value, int decimals);

} // namespace krt550
