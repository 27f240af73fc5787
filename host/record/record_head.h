#pragma once

#include <QString>

namespace krt550 {

/// A file that can be written, and is either empty or made, or says in its first bytes that it is a record that this
/// program can append to. Costs next to nothing. Only opening it tells for certain, and why not.
bool IsPlainlyRecord(const QString& path);

} // namespace krt550
