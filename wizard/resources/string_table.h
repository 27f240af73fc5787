#pragma once

#include <QString>

#include <optional>

namespace krt550 {

/// Text of the module's string table.
std::optional<QString> StringTableText(int number);

} // namespace krt550
