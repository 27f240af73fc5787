#include "host/report/fault_text.h"

#include "hostlib/tolvbo32/value_codec.h"

#include <QtEndian>

namespace krt550 {
namespace {

/// How a field's value is meant.
enum class FieldType { Unsigned = 0, Signed = 1, Hundredths = 5, Hexadecimal = 12, Time = 19 };

/// A field is a value of two bytes (the time, which is the first: four), the register that it comes from (0: no value),
/// a type and a unit. All of them most significant byte first; five bytes that say nothing, after the state, precede.
constexpr qsizetype kFirstField = 6;
constexpr qsizetype kTimeBytes = 4;
constexpr qsizetype kValueBytes = 2;
constexpr qsizetype kAfterValue = 4;
/// The first fields do not tell of a register.
constexpr const char* kOwnNames[] = {"Drive time", "Fault code", "Drive days"};

QString TimeText(quint32 tenthsOfMs) {
    const auto seconds = tenthsOfMs / 10000;
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600, 2, 10, QLatin1Char('0'))
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

QString ValueText(FieldType type, quint32 value) {
    const auto word = quint16(value);
    switch (type) {
    case FieldType::Unsigned:
        return QString::number(word);
    case FieldType::Signed:
        return QString::number(qint16(word));
    case FieldType::Hundredths:
        return QString::number(qint16(word) * 0.01, 'f', 2);
    case FieldType::Hexadecimal:
        return QString::number(word, 16).toUpper() + QLatin1Char('h');
    case FieldType::Time:
        return TimeText(value);
    }
    return {};
}

quint32 Number(const QByteArray& record, qsizetype at, qsizetype bytes) {
    return bytes == kTimeBytes ? qFromBigEndian<quint32>(record.constData() + at)
                               : qFromBigEndian<quint16>(record.constData() + at);
}

} // namespace

QStringList FaultLines(const QByteArray& record, const std::map<quint16, ParameterDescription>& parameters) {
    QStringList lines;
    qsizetype at = kFirstField;
    for (std::size_t field = 0;; ++field) {
        const qsizetype bytes = field == 0 ? kTimeBytes : kValueBytes;
        if (record.size() < at + bytes + kAfterValue)
            return lines;
        const quint32 value = Number(record, at, bytes);
        const auto source = quint16(Number(record, at + bytes, 2));
        const auto type = FieldType(quint8(record[at + bytes + 2]));
        at += bytes + kAfterValue;
        const auto found = parameters.find(source);
        if (source == 0 || (field >= std::size(kOwnNames) && found == parameters.end()))
            continue;
        if (field < std::size(kOwnNames)) {
            lines += QStringLiteral("%1: %2").arg(QLatin1String(kOwnNames[field]), ValueText(type, value));
            continue;
        }
        const ParameterDescription& parameter = found->second;
        const QString text = parameter.isValueList() ? ShownText(parameter, quint16(value)) : ValueText(type, value);
        lines += QStringLiteral("%1: %2 %3").arg(parameter.name, text, parameter.unit).trimmed();
    }
}

} // namespace krt550
