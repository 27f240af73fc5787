#pragma once

#include "host/workbench/drive_state.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter_description.h"

#include <functional>
#include <vector>

namespace krt550 {

class CConnectedDrive;

/// Looks at the drive again and again: one call a turn of the event loop, a pass every 200 ms on a quick line. On a
/// slow one it takes at most a fifth of the time; beside somebody else's work on the line it looks once a second.
class CDriveWatch {
public:
    CDriveWatch() : m_timer([this] { Step(); }) {}

    /// Borrowed; null: not connected.
    void SetDrive(CConnectedDrive* drive, const std::vector<ParameterDescription>& parameters);
    void SetShared(bool isShared) { m_isShared = isShared; }
    /// Begins a pass soon: something was done that may show.
    void LookSoon();
    const SeenState& State() const { return m_state; }
    /// Called after a pass, and when the drive falls silent.
    std::function<void()> onChange;

private:
    void Step();
    void EndPass();
    void Hear(bool answered);

    CConnectedDrive* m_drive = nullptr;
    CClockTimer m_timer;
    SeenState m_state;
    std::vector<quint16> m_registers; ///< those that the drive has
    std::size_t m_next = 0;           ///< 0: the state; then the registers
    qint64 m_spent = 0;               ///< in this pass [ms]
    bool m_isShared = false;
};

} // namespace krt550
