#pragma once

#include <QString>

class QPixmap;

namespace krt550 {

class CTrendHistory;

/// Writes the samples of all signals from one time to another [s since 1970-01-01 UTC], both included, as a table for
/// other programs: UTF-8, lines that end with a line feed, fields with commas between them, numbers with a decimal
/// point whatever the language. The first line names the columns: "Time" (of day where the program runs, as
/// 2026-11-23T14:05:31.250), "Seconds" (since the first line), then the signals as "1.04 Speed actual [rpm]"; a name
/// with a comma or a quote in it stands in quotes, and its quotes are doubled. What was not read is an empty field.
/// Returns what went wrong with the file's name, or nothing; a file that was there is then left as it was.
QString WriteTrendTable(const CTrendHistory& history, double from, double to, const QString& path);

/// Writes a picture as PNG. Returns as WriteTrendTable does.
QString WriteTrendPicture(const QPixmap& picture, const QString& path);

} // namespace krt550
