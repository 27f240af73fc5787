#pragma once

namespace krt550 {

/// Drains the thread's event queue: everything that waits now is dispatched, at most for 50 ms, so that a steady
/// stream of events cannot hold up the caller. Handlers re-enter windows meanwhile.
void DrainMessageQueue();

} // namespace krt550
