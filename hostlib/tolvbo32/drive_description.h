#pragma once

#include "hostlib/export.h"
#include "hostlib/tolvbo32/parameter_description.h"

#include <QStringList>

#include <optional>

class QIODevice;

namespace krt550 {

/// Reads a drive description: tab-separated UTF-8 text with the header line
///   register  name  unit  data type  type  decimals  minimum  maximum  default  access  values
/// and one line a parameter; lines that start with '#' and empty lines are skipped. `fileName` is used in the
/// errors, one for each bad line: "FILE:LINE: what is wrong". Nothing is returned when there was any error.
HOSTLIB_EXPORT std::optional<std::vector<ParameterDescription>>
ReadDriveDescription(QIODevice& input, const QString& fileName, QStringList& errors);

/// The same from a file; a file that cannot be opened is an error too.
HOSTLIB_EXPORT std::optional<std::vector<ParameterDescription>> ReadDriveDescriptionFile(const QString& path,
                                                                                         QStringList& errors);

} // namespace krt550
