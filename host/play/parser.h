#pragma once

#include "host/play/action.h"

#include <QStringList>

#include <optional>

class QIODevice;

namespace krt550 {

/// Reads a play. `fileName` is used in the errors, one for each bad line: "FILE:LINE: what is wrong". Nothing is
/// returned when there was any error, so that no play runs half.
std::optional<PlayScript> ReadPlay(QIODevice& input, const QString& fileName, QStringList& errors);

/// The same from a file; a file that cannot be opened is an error too.
std::optional<PlayScript> ReadPlayFile(const QString& path, QStringList& errors);

} // namespace krt550
