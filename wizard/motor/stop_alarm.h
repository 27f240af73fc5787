#pragma once

#include <QPointer>

class QMessageBox;

namespace krt550 {

enum class StopAlarm {
    RunningDown, ///< the drive has taken the stop and does not report standstill yet
    NotConfirmed ///< it does not answer
};

/// The box over everything while a stop waits to be confirmed. It waits for nobody: the stop goes on behind it, and it
/// goes away with this object.
class CStopAlarm {
public:
    CStopAlarm() = default;
    ~CStopAlarm();
    CStopAlarm(const CStopAlarm&) = delete;
    CStopAlarm& operator=(const CStopAlarm&) = delete;

    /// Shows the box, or changes its text. One that somebody has put away comes back only when it gets worse.
    void Show(StopAlarm alarm);

private:
    QPointer<QMessageBox> m_box;
    int m_shown = -1; ///< the alarm that was shown last
};

} // namespace krt550
