#include "wizard/resources/pictures.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

// The pictures are linked into a static library, so that somebody has to ask for them.
static void RegisterPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace krt550 {

namespace {

QPixmap Render(int number, QSize size, qreal pixelRatio) {
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

} // namespace

QPixmap DrawPicture(int number, QSize size, qreal pixelRatio) {
    const QString key =
        QStringLiteral("krt550 %1 %2x%3 %4").arg(number).arg(size.width()).arg(size.height()).arg(pixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = Render(number, size, pixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

} // namespace krt550
