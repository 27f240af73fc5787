#pragma once

#include <QImage>
#include <QString>

namespace krt550 {

/// A drawing in a file, as pixels that need no further conversion. `size` in device-independent pixels, an empty one
/// means the drawing's own; it keeps its proportions inside it. A null image, and a message, when the file is no
/// drawing or Qt's plug-in for SVG is not there.
QImage DrawSvg(const QString& file, QSize size, qreal pixelRatio);

} // namespace krt550
