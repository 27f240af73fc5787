#pragma once

#include <optional>

namespace krt550 {

class CHostDrive;

/// Whether somebody has switched the drive on: 8.01 says ready to operate, or running. A failed read is told and gives
/// nothing; a drive without 8.01 is not switched on.
std::optional<bool> IsSwitchedOn(CHostDrive& drive);

/// Whether nothing can turn, as far as the drive knows: it has told its state, the motor stands, nobody has switched
/// the drive on, and the wizard does not hold it. For what may only be done then.
bool IsAtRest(CHostDrive& drive);

} // namespace krt550
