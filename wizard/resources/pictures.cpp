#include "wizard/resources/pictures.h"

#include <QPainter>
#include <QSvgRenderer>

// The pictures are linked into a static library, so that somebody has to ask for them.
static void RegisterPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace krt550 {

QPixmap DrawPicture(int number, QSize size, qreal pixelRatio) {
    RegisterPictures();
    QSvgRenderer renderer(QStringLiteral(":/krt550/pictures/%1.svg").arg(number));
    if (!renderer.isValid())
        return {};
    QSizeF shown = renderer.defaultSize();
    if (!size.isEmpty())
        shown.scale(size, Qt::KeepAspectRatio);
    QPixmap pixmap((shown * pixelRatio).toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(pixelRatio);
    return pixmap;
}

} // namespace krt550
