#include "host/record/recorder.h"

#include "host/record/record_writer.h"
#include "hostlib/tolvbo32/clock.h"

namespace krt550 {
namespace {

// The text of nothing is NULL, too.
QVariant OrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

/// A text that is empty, where a column takes no NULL.
QString Present(const QString& text) {
    return text.isNull() ? QStringLiteral("") : text;
}

QVariant OrNull(const QByteArray& data) {
    return data.isEmpty() ? QVariant() : QVariant(data);
}

template <class Value> QVariant OrNull(const std::optional<Value>& value) {
    return value ? QVariant(*value) : QVariant();
}

QVariant OrNull(const std::optional<quint16>& word) {
    return word ? QVariant(int(*word)) : QVariant();
}

} // namespace

CRecorder::CRecorder(CRecordWriter& writer) : m_writer(writer), m_start(CClock::Current().Now()) {}

void CRecorder::Begin() {
    m_writer.Start();
}

void CRecorder::TellTrouble() {
    m_writer.TellTrouble();
}

qint64 CRecorder::Now() const {
    return CClock::Current().Now() - m_start;
}

qint64 CRecorder::Note(const RecordEvent& event) {
    m_writer.Append(
        {RecordTable::Event,
         {++m_last, Now(), QString::fromLatin1(event.kind), event.reg ? QVariant(int(event.reg)) : QVariant(),
          OrNull(event.oldWord), OrNull(event.newWord), OrNull(event.text), OrNull(event.detail), OrNull(event.data)}});
    return m_last;
}

qint64 CRecorder::NoteForCertain(const RecordEvent& event) {
    const qint64 number = Note(event);
    const bool wasLate = std::exchange(m_isLate, !m_writer.Wait());
    if (m_isLate && !wasLate)
        Note({.kind = "late",
              .text = QStringLiteral("The disk is slow: from here on things were sent before they were on it")});
    return number;
}

void CRecorder::NoteOutcome(qint64 event, std::optional<bool> ok, const QString& text) {
    m_writer.Append({RecordTable::Outcome, {event, Now(), OrNull(ok), OrNull(text)}});
}

void CRecorder::NoteParameter(const ParameterDescription& parameter) {
    const int reg = parameter.reg;
    m_writer.Append(
        {RecordTable::Parameter,
         {reg, Present(parameter.name), Present(parameter.unit), int(parameter.dataType), int(parameter.type),
          parameter.decimals, parameter.minimum, parameter.maximum, parameter.defaultValue, parameter.readOnly}},
        CRecordWriter::When::Soon);
    for (const auto& [word, text] : parameter.values)
        m_writer.Append({RecordTable::ValueText, {reg, int(word), text}}, CRecordWriter::When::Soon);
}

void CRecorder::NoteValue(const char* moment, quint16 reg, quint16 word) {
    m_writer.Append({RecordTable::Value, {QString::fromLatin1(moment), int(reg), Now(), int(word)}},
                    CRecordWriter::When::Soon);
}

void CRecorder::NoteSample(qint64 run, qint64 time, const TraceSample& sample) {
    QVariantList values{run, time};
    for (const std::optional<double>& value : sample)
        values.append(OrNull(value));
    m_writer.Append({RecordTable::Sample, values}, CRecordWriter::When::Soon);
}

void CRecorder::Settle(bool inHurry) {
    m_writer.Wait(inHurry);
}

} // namespace krt550
