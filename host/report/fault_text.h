#pragma once

#include "host/report/record_reader.h"

#include <QStringList>

namespace krt550 {

/// The fields of a drive's fault record in words, a line each: "Armature current: 12.3 A". What the record holds of
/// registers that the drive does not describe is left out.
QStringList FaultLines(const QByteArray& record, const std::map<quint16, ParameterDescription>& parameters);

} // namespace krt550
