#pragma once

#include <QString>

namespace krt550 {

/// Whether a topic or style sheet can be laid out in a moment. The time that rich text takes grows with the square of
/// what is nested, spanned or styled, and doubles with each table inside a table; a damaged topic could keep the window
/// for minutes.
bool IsSimpleTopic(const QString& html);

/// Largest style sheet [characters].
inline constexpr int kLargestStyle = 4096;

} // namespace krt550
