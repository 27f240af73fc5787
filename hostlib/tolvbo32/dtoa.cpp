#include "hostlib/tolvbo32/dtoa.h"

namespace krt550 {

QString dtoa(double value, int decimals) { return QString::number(value, 'f', decimals); }

} // namespace krt550
