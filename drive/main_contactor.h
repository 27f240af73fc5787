#pragma once

#include <QtGlobal>

namespace krt550 {

/// How a main contactor fails.
enum class ContactorDefect {
    None,
    Stuck,  ///< stays where it is
    Welded, ///< closes, but does not open
    Drops   ///< opens whatever it is told, and does not close
};

/// The main contactor with its acknowledge: follows its command, or not.
class CMainContactor {
public:
    bool IsClosed() const { return m_closed; }
    void SetDefect(ContactorDefect defect) { m_defect = defect; }
    /// True when it has moved.
    bool Follow(bool command) {
        const bool holds = m_defect == ContactorDefect::Stuck || (m_defect == ContactorDefect::Welded && !command);
        const bool next = holds ? m_closed : command && m_defect != ContactorDefect::Drops;
        const bool moved = next != m_closed;
        m_closed = next;
        return moved;
    }
    /// Lets `milliseconds` pass; `follows`: its acknowledge agrees with its command.
    void Wait(qint64 milliseconds, bool follows) { m_astray = follows ? 0 : m_astray + milliseconds; }
    /// For how long it has not seemed to be where it shall be [ms].
    qint64 GetAstray() const { return m_astray; }

private:
    bool m_closed = false;
    ContactorDefect m_defect = ContactorDefect::None;
    qint64 m_astray = 0;
};

} // namespace krt550
