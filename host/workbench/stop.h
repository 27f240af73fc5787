#pragma once

#include "hostlib/tolvbo32/clock.h"

#include <QString>

#include <functional>

namespace krt550 {

class CConnectedDrive;

/// The Stop of the workbench. It is sent at once, before anything is looked at, and again until the drive confirms
/// that the motor stands or the program no longer holds local control; a drive that does not answer keeps being told.
/// It asks nothing, and nothing switches it off.
class CStop {
public:
    CStop() : m_timer([this] { Step(); }) {}

    /// Borrowed; null: not connected.
    void SetDrive(CConnectedDrive* drive);
    /// Ends the service mode and stops the motor.
    void Press();
    bool IsUnderWay() const { return m_timer.IsActive(); }
    /// What the last Stop has come to, for a person; empty before the first.
    const QString& Text() const { return m_text; }
    /// Called when the text or IsUnderWay is another.
    std::function<void()> onChange;

private:
    void Step();
    void Tell(const QString& text);

    CConnectedDrive* m_drive = nullptr;
    CClockTimer m_timer;
    QString m_text;
};

} // namespace krt550
