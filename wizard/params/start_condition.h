#pragma once

#include <QtGlobal>

#include <vector>

namespace krt550 {

class CParameterGroup;

/// What becomes of a start condition that names a register which the drive lacks.
enum class MissingRegister {
    Fails, ///< and is told in an error box
    Holds
};

/// Whether the text file's start condition of a step holds with the values that the drive has now. Without a condition
/// it does; with a value that cannot be read (shown) it does not. `root` is not null.
bool StartConditionHolds(int step, CParameterGroup* root, MissingRegister missing = MissingRegister::Fails);

/// Adds the registers that the start condition of a step reads.
void AddStartConditionReads(int step, std::vector<quint16>& registers);

} // namespace krt550
