#include "host/record/recorded_link.h"

#include "host/record/as_found.h"
#include "host/record/drive_story.h"
#include "host/record/run_watch.h"

namespace krt550 {

bool CRecordedLink::ReadWord(quint16 reg, quint16& word) {
    if (!m_link.ReadWord(reg, word))
        return false;
    m_story.Seen(reg, word);
    if (reg == kServiceModeRegister)
        m_runs.OnModeRead(word);
    return true;
}

bool CRecordedLink::WriteWord(quint16 reg, quint16 word) {
    const bool isStop = reg == kServiceModeRegister && word == 0;
    if (!isStop)
        m_asFound.Finish();
    const std::optional<qint64> number = isStop ? std::nullopt : std::optional(m_story.BeforeWrite(reg, word));
    const bool succeeded = m_link.WriteWord(reg, word);
    QString error;
    if (!succeeded)
        error = m_link.LastErrorText().isEmpty() ? QStringLiteral("no reason given") : m_link.LastErrorText();
    m_story.AfterWrite(number, reg, word, error);
    if (reg == kServiceModeRegister)
        m_runs.OnModeWritten(word, succeeded);
    return succeeded;
}

void CRecordedLink::Announce(std::span<const quint16> registers) {
    m_story.Announced(registers);
    m_link.Announce(registers);
}

} // namespace krt550
