#pragma once

#include <QPixmap>

namespace krt550 {

/// Draws picture `number` of the module. `size` in device-independent pixels, an empty one means the picture's own; the
/// picture keeps its proportions inside it. A null pixmap when there is no such picture.
QPixmap DrawPicture(int number, QSize size, qreal pixelRatio);

} // namespace krt550
