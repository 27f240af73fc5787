#include "hostlib/tolvbo32/dtoa.h"

#include <algorithm>

namespace krt550 {

QString dtoa(double value, int decimals) {
    QString text = QString::number(value, 'f', decimals);
    const auto isZero = [](QChar c) { return c == QLatin1Char('0') || c == QLatin1Char('.'); };
    if (text.startsWith(QLatin1Char('-')) && std::all_of(text.cbegin() + 1, text.cend(), isZero))
        text.remove(0, 1);
    return text;
}

} // namespace krt550
