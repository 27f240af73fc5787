#include "wizard/resources/svg_image.h"

#include <QImageReader>

namespace krt550 {

QImage DrawSvg(const QString& file, QSize size, qreal pixelRatio) {
    // By Qt's plug-in for the format, so that only whoever draws waits for the library that does it.
    QImageReader reader(file);
    QSizeF shown = reader.size();
    if (!size.isEmpty())
        shown.scale(size, Qt::KeepAspectRatio);
    reader.setScaledSize((shown * pixelRatio).toSize());
    QImage image = reader.read();
    if (image.isNull())
        qWarning("%s: cannot be drawn: %s", qPrintable(file), qPrintable(reader.errorString()));
    return image;
}

} // namespace krt550
