#include "wizard/resources/svg_image.h"

#include <QPainter>
#include <QSvgRenderer>

namespace krt550 {

QImage DrawSvg(const QString& file, QSize size, qreal pixelRatio) {
    QSvgRenderer renderer(file);
    if (!renderer.isValid())
        return {};
    QSizeF shown = renderer.defaultSize();
    if (!size.isEmpty())
        shown.scale(size, Qt::KeepAspectRatio);
    QImage image((shown * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace krt550
