#include "wizard/resources/pictures.h"

#include "wizard/resources/svg_image.h"

#include <QDir>
#include <QPixmapCache>
#include <QResource>

#include <algorithm>

// The pictures are linked into a static library, so that somebody has to ask for them.
static void RegisterPictures() {
    Q_INIT_RESOURCE(pictures);
    Q_INIT_RESOURCE(drawn_pictures);
}

namespace krt550 {

namespace {

/// How much smaller [%] than asked for a picture may be before it is drawn anew.
constexpr int kSmaller = 5;

/// The sizes in which a picture was drawn when the module was built, its own first; none of most pictures.
QList<QSize> SizesDrawn(const QString& folder) {
    QList<QSize> sizes;
    const QStringList names = QDir(folder).entryList(QDir::Files);
    for (const QString& name : names)
        sizes.append({name.section(QLatin1Char('x'), 0, 0).toInt(), name.section(QLatin1Char('x'), 1).toInt()});
    std::ranges::sort(sizes, {}, &QSize::width);
    return sizes;
}

/// The pixels of those that lie in the module uncompressed are used where they are.
QImage LoadDrawn(const QString& folder, QSize size) {
    const QResource file(QStringLiteral("%1/%2x%3").arg(folder).arg(size.width()).arg(size.height()));
    const auto format = QImage::Format_ARGB32_Premultiplied;
    if (file.uncompressedSize() != qint64{4} * size.width() * size.height())
        return {};
    const bool aligned = reinterpret_cast<quintptr>(file.data()) % alignof(QRgb) == 0;
    if (file.compressionAlgorithm() == QResource::NoCompression && aligned)
        return {file.data(), size.width(), size.height(), format};
    auto* pixels = new QByteArray(file.uncompressedData());
    return {reinterpret_cast<const uchar*>(pixels->constData()),       size.width(), size.height(), format,
            [](void* kept) { delete static_cast<QByteArray*>(kept); }, pixels};
}

/// A picture that was drawn as large as is asked for, or hardly smaller: as it is, since scaling would blur it.
QImage FindDrawn(int number, QSize size, qreal pixelRatio) {
    const QString folder = QStringLiteral(":/krt550/drawn/%1").arg(number);
    const QList<QSize> sizes = SizesDrawn(folder);
    if (sizes.isEmpty())
        return {};
    QSizeF shown = sizes.front();
    if (!size.isEmpty())
        shown.scale(size, Qt::KeepAspectRatio);
    const QSize wanted = (shown * pixelRatio).toSize();
    const auto fits = std::ranges::find_if(sizes, [&](QSize drawn) {
        return drawn.width() <= wanted.width() && drawn.height() <= wanted.height() &&
               drawn.width() * 100 >= wanted.width() * (100 - kSmaller);
    });
    return fits == sizes.end() ? QImage() : LoadDrawn(folder, *fits);
}

QPixmap Draw(int number, QSize size, qreal pixelRatio) {
    RegisterPictures();
    QImage image = FindDrawn(number, size, pixelRatio);
    if (image.isNull())
        image = DrawSvg(QStringLiteral(":/krt550/pictures/%1.svg").arg(number), size, pixelRatio);
    QPixmap pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(pixelRatio);
    return pixmap;
}

} // namespace

QPixmap DrawPicture(int number, QSize size, qreal pixelRatio) {
    const QString key =
        QStringLiteral("krt550 %1 %2x%3 %4").arg(number).arg(size.width()).arg(size.height()).arg(pixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = Draw(number, size, pixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

} // namespace krt550
