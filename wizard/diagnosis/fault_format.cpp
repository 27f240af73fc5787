#include "wizard/diagnosis/fault_format.h"

namespace krt550 {

quint32 BigEndianNumber(const QByteArray& bytes) {
    quint32 number = 0;
    for (const char byte : bytes)
        number = (number << 8) | static_cast<quint8>(byte);
    return number;
}

QString FormatFaultValue(int dataType, const QByteArray& value) {
    const quint32 number = BigEndianNumber(value);
    const auto word = static_cast<quint16>(number);
    switch (dataType) {
    case 0:
        return QString::number(word);
    case 1:
        return QString::number(static_cast<qint16>(word));
    case 5:
        return QString::number(static_cast<qint16>(word) * 0.01, 'f', 2);
    case 12:
        return QString::number(word, 16).toUpper() + QLatin1Char('h');
    case 19:
        return FormatFaultTime(number);
    default:
        return {};
    }
}

QString FormatFaultTime(quint32 value) {
    const quint32 seconds = value / 10000;
    const auto twoDigits = [](quint32 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    return twoDigits(seconds / 3600) + QLatin1Char(':') + twoDigits(seconds / 60 % 60) + QLatin1Char(':') +
           twoDigits(seconds % 60);
}

} // namespace krt550
