#pragma once

#include "wizard/texts/help_file.h"

#include <QImage>

class QWidget;

namespace krt550 {

/// Pixels of all pictures of a topic.
inline constexpr qint64 kMostPixels = 16 * 1024 * 1024;

/// A picture (PNG, JPEG, GIF, BMP) of at most `limit` pixels out of a help file.
HelpContent<QImage> ReadHelpPicture(const CHelpFile& file, const QString& name, qint64 limit);

/// A picture that shows a sentence in the widget's font and colours.
QImage PictureOf(const QString& sentence, const QWidget& widget);

} // namespace krt550
