#pragma once

#include <QByteArray>
#include <QString>

namespace krt550 {

/// Unsigned number in big-endian bytes.
quint32 BigEndianNumber(const QByteArray& bytes);

/// Text of a fault record's value. Data types: 0 unsigned, 1 signed, 5 signed hundredths, 12 hexadecimal, 19 time in
/// ten-thousandths of a second; empty for any other. All but the time use the low 16 bits.
QString FormatFaultValue(int dataType, const QByteArray& value);

/// HH:MM:SS of ten-thousandths of a second; the hours do not wrap.
QString FormatFaultTime(quint32 value);

} // namespace krt550
