#include "host/logged_link.h"

#include "host/call_log.h"

namespace krt550 {

bool CLoggedLink::ReadWord(quint16 reg, quint16& word) {
    const bool succeeded = m_link.ReadWord(reg, word);
    m_log.NoteRegister("ReadWord", reg, word, ErrorText(succeeded));
    return succeeded;
}

bool CLoggedLink::WriteWord(quint16 reg, quint16 word) {
    const bool succeeded = m_link.WriteWord(reg, word);
    m_log.NoteRegister("WriteWord", reg, word, ErrorText(succeeded));
    return succeeded;
}

QString CLoggedLink::ErrorText(bool succeeded) const {
    if (succeeded)
        return {};
    const QString text = m_link.LastErrorText();
    return text.isEmpty() ? QStringLiteral("no reason given") : text;
}

} // namespace krt550
