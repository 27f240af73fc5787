#pragma once

#include <QByteArray>

#include <array>

namespace krt550 {

/// First byte of a fault record.
enum class RecordState : quint8 { Short = 3, FieldsMissing = 5, Complete = 10 };

/// How a record's reader shows a value.
enum class RecordType : quint8 { Unsigned = 0, Signed = 1, Hundredths = 5, Hexadecimal = 12, Time = 19 };

/// One field of a fault record.
struct RecordField {
    quint32 value = 0; ///< 16 bits, the time 32 [0.1 ms]
    quint16 tag = 0;   ///< register that the value comes from; 0: no value
    RecordType type = RecordType::Unsigned;
    quint8 unitCode = 0;
};

/// Fault time, code and days; armature and mains voltage; armature and field current; speed actual and reference;
/// used control word; diagnosis.
using FaultFields = std::array<RecordField, 11>;

inline constexpr int kFaultRecordSize = 74;
/// A short record ends after the days.
inline constexpr int kShortFaultRecordSize = 26;

/// The record's bytes, most significant byte first: state, five bytes that nobody reads, then value, tag, data
/// type and unit code of each field.
QByteArray EncodeFaultRecord(RecordState state, const FaultFields& fields);

} // namespace krt550
