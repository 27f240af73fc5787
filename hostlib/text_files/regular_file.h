#pragma once

#include <QFile>

namespace krt550 {

enum class FileProblem { None, Unreadable, TooLarge };

/// Opens a file for reading when it is a regular one of at most `limit` bytes. A pipe or a device in its place could
/// keep the reader waiting for ever, or never end.
FileProblem OpenRegularFile(QFile& file, qint64 limit);

} // namespace krt550
