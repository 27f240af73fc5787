#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace krt550 {

/// Splits a line of a play into words: blanks separate, "..." holds a text together (\" \\ and \n inside it), a #
/// that starts a word starts a comment. Nothing when a quotation mark has no partner.
std::optional<QStringList> SplitWords(const QString& line);

} // namespace krt550
