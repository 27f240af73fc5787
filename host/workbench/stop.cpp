#include "host/workbench/stop.h"

#include "host/connected_drive.h"

namespace krt550 {
namespace {

constexpr qint64 kStopLookMs = 50;

} // namespace

void CStop::SetDrive(CConnectedDrive* drive) {
    m_timer.Stop();
    m_drive = drive;
    Tell({});
}

void CStop::Press() {
    if (!m_drive || IsUnderWay())
        return; // it is being repeated anyway
    m_drive->LastStop().BeginAnew();
    const bool isOver = m_drive->LastStop().Stop();
    if (m_drive->PlainDrive().IsLocalControlActive()) {
        if (!isOver)
            m_timer.Start(kStopLookMs);
        return Tell(isOver ? QStringLiteral("Stop: the motor stands")
                           : QStringLiteral("Stop is sent; waiting until the motor stands"));
    }
    // Somebody else commands the drive. What it does about this Stop is its own decision, and worth the attempt.
    const bool taken = m_drive->Drive().StopMotor();
    Tell(taken ? QStringLiteral("Stop is sent")
               : QStringLiteral("Stop was not taken: this program does not command the drive"));
}

void CStop::Step() {
    const bool isOver = m_drive->LastStop().Stop();
    if (m_drive->LastStop().IsSilent())
        return Tell(QStringLiteral("The drive does not answer, and the stop is not confirmed: use the E-stop if the "
                                   "motor turns"));
    if (!isOver)
        return;
    m_timer.Stop();
    Tell(QStringLiteral("Stop: the motor stands"));
}

void CStop::Tell(const QString& text) {
    if (std::exchange(m_text, text) != text || !IsUnderWay())
        if (onChange)
            onChange();
}

} // namespace krt550
