#include "drive/fault_record.h"

namespace krt550 {
namespace {

void AppendWord(QByteArray& record, quint16 word) {
    record.append(static_cast<char>(word >> 8));
    record.append(static_cast<char>(word & 0xFF));
}

} // namespace

QByteArray EncodeFaultRecord(RecordState state, const FaultFields& fields) {
    QByteArray record(6, '\0');
    record[0] = static_cast<char>(state);
    for (const RecordField& field : fields) {
        if (&field == &fields.front())
            AppendWord(record, static_cast<quint16>(field.value >> 16));
        AppendWord(record, static_cast<quint16>(field.value & 0xFFFF));
        AppendWord(record, field.tag);
        record.append(static_cast<char>(field.type));
        record.append(static_cast<char>(field.unitCode));
    }
    return record;
}

} // namespace krt550
