#pragma once

namespace krt550 {

/// Ends the application as a host does that quits: every event loop on the stack stops.
void EndApplication();

/// Makes event loops run again after EndApplication; called with none on the stack.
void RestartApplication();

} // namespace krt550
