#pragma once

namespace krt550 {

class CSession;

/// Opens the main window, connects the drive of the options if they name one, and returns the exit status when the
/// window is closed and nothing turns any more.
int RunWorkbench(CSession& session);

} // namespace krt550
