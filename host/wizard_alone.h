#pragma once

namespace krt550 {

class CSession;

/// Opens the wizard on the drive of the options and ends with it; a play works it, if there is one. Returns the exit
/// status.
int RunWizardAlone(CSession& session);

} // namespace krt550
