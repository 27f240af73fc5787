#pragma once

#include <QtGlobal>

namespace krt550 {

/// Inversion of digital input `number`: 10.25 to 10.32.
constexpr quint16 DIInversionRegister(int number) {
    return static_cast<quint16>(1024 + number);
}
/// Source of digital output `number`, its index and its bit: 14.01 to 14.16.
constexpr quint16 DOIndexRegister(int number) {
    return static_cast<quint16>(1399 + 2 * number);
}
constexpr quint16 DOBitRegister(int number) {
    return static_cast<quint16>(1400 + 2 * number);
}
/// Signal of analogue output `number`: 15.01 and 15.06.
constexpr quint16 AOIndexRegister(int number) {
    return static_cast<quint16>(1496 + 5 * number);
}

} // namespace krt550
