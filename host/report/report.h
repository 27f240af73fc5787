#pragma once

#include <QString>

namespace krt550 {

/// Makes the commissioning report of a record: a PDF or one HTML file, by the ending of `output`. The same record gives
/// the same bytes of HTML on the same machine. There has to be a QGuiApplication. False, and the reason in `error`,
/// when the record cannot be read, the ending is another one, or the file cannot be written.
bool WriteReport(const QString& record, const QString& output, QString& error);

} // namespace krt550
