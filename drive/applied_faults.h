#pragma once

namespace krt550 {

class CFaultModes;
class CSimulatedDrive;
struct FaultMode;

/// Brings those modes into the drive that are about the drive and its surroundings, not about the line to it; what is
/// not switched on is sound again.
void ApplyFaultModes(const CFaultModes& modes, CSimulatedDrive& drive);
/// What a mode does once, when it is switched on: it ends by itself.
void BeginFaultMode(const FaultMode& mode, CSimulatedDrive& drive);

} // namespace krt550
