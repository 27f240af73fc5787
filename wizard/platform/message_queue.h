#pragma once

#include <QtGlobal>

#include <functional>

namespace krt550 {

/// Drains the thread's event queue: everything that waits now is dispatched, at most for 50 ms, so that a steady
/// stream of events cannot hold up the caller. Handlers re-enter windows meanwhile.
void DrainMessageQueue();

/// Lets `milliseconds` of the current clock pass in the event loop, so that window, screen reader and Cancel are answered
/// at once. Looks after every event whether `isWanted` still says so; false as soon as it does not.
bool WaitInEventLoop(qint64 milliseconds, const std::function<bool()>& isWanted);

} // namespace krt550
