#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <span>

namespace krt550 {

class CHostDrive;
class CParameterLink;

/// Why a drive's settings must not be exchanged now: it does not answer, its motor turns, somebody has switched it on,
/// or a service mode runs. Empty when none of it is so. A drive whose `parameters` lack 8.01 or 99.06 is not asked for
/// it. Asks the drive three times at most.
QString WhyNotAtRest(CHostDrive& drive, CParameterLink& link, std::span<const ParameterDescription> parameters);

} // namespace krt550
