#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

namespace krt550 {

/// What backups and restores make of a parameter.
enum class Keeping {
    Restored, ///< a setting: backed up and put back
    Shown,    ///< backed up and compared, never written: it says which drive this is, or is set by hand
    Left,     ///< neither: a value or command of the moment
};

/// What becomes of a parameter; `reason`, when it is given, says why it is not restored, and is empty for one that is.
Keeping KeepingOf(const ParameterDescription& parameter, QString* reason = nullptr);

/// A drive's parameters that a backup holds, by register.
std::vector<ParameterDescription> BackedUp(const std::vector<ParameterDescription>& parameters);

/// When a setting is restored: those with the smaller number first, and by register among equals. A parameter whose
/// limits or meaning depend on another one comes behind it.
int RestoreStage(quint16 reg);

} // namespace krt550
