#pragma once

#include <QString>

namespace krt550 {

/// Writes a wizard text file of about `bytes` bytes into `directory` (Wzkrt550.txt): the kinds of lines of a real one,
/// in the proportions of a real one, over ever more registers, values and signals. The same bytes each time.
void WriteGeneratedTexts(const QString& directory, qint64 bytes);

} // namespace krt550
