#pragma once

namespace krt550 {
class CHostDrive;
}

/// Shows the wizard for a connected drive and returns when it has closed. The module's only exported function; called
/// on the thread of the user interface. Returns 0 after the wizard ran, 2 (and shows nothing) for a null drive.
extern "C" int RunWizard(krt550::CHostDrive* drive);
