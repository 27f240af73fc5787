#pragma once

#include <functional>

namespace krt550 {

class CWindow;

/// Input before timers: for the scope's lifetime no timer of a window calls its OnTimer. Whoever drains the queue
/// between two drive calls sees what a person does, and paints, but serves no update that would ask the drive
/// meanwhile. What falls due waits, once for each timer: until ServeDueTimers, or until the event loop is back and no
/// scope is left.
class TimerHold {
public:
    TimerHold();
    ~TimerHold();
    TimerHold(const TimerHold&) = delete;
    TimerHold& operator=(const TimerHold&) = delete;

    /// Keeps a timer that has fallen due for later; false when nothing is held.
    static bool Keep(CWindow& window, int timerHandle);
};

/// Has the timers that wait do their work, one after the other, for as long as `goOn` says before each that they may.
void ServeDueTimers(const std::function<bool()>& goOn);

} // namespace krt550
