#include "host/call_log.h"

#include "hostlib/tolvbo32/clock.h"

namespace krt550 {
namespace {

QString OutcomeText(const QString& error) {
    return error.isEmpty() ? QStringLiteral("ok") : QStringLiteral("failed: ") + error.simplified();
}

} // namespace

CCallLog::CCallLog(Output output, bool keep)
    : m_output(std::move(output)), m_keep(keep), m_start(CClock::Current().Now()) {
    if (m_output)
        m_output("# time\tcall\tregister\tvalue\toutcome");
}

void CCallLog::NoteRegister(const char* call, quint16 reg, quint16 word, const QString& error) {
    if (m_output || m_keep)
        Append({QString::fromLatin1(call), QString::number(reg), QString::number(word), OutcomeText(error)});
}

void CCallLog::Note(const char* call, const QString& value, const QString& error) {
    if (m_output || m_keep)
        Append({QString::fromLatin1(call), QString(), value, OutcomeText(error)});
}

void CCallLog::Append(const QStringList& columns) {
    const qint64 time = CClock::Current().Now() - m_start;
    const QString line = QString::number(time) + QLatin1Char('\t') + columns.join(QLatin1Char('\t'));
    if (m_keep)
        m_lines.append(line);
    if (m_output)
        m_output(line.toUtf8());
}

} // namespace krt550
