#pragma once

#include "host/play/vocabulary.h"

#include <QStringList>

namespace krt550 {

/// Reads the arguments of a verb or condition from the words behind it. Returns what is wrong with them, or an empty
/// text.
QString ReadArguments(const std::pair<ArgumentKind, ArgumentKind>& kinds, QStringList words, Arguments& arguments);

/// Reads a positive number of seconds.
bool ReadSeconds(const QString& word, double& seconds);

} // namespace krt550
