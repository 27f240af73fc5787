#include "wizard/texts/help_picture.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace krt550 {
namespace {

/// Formats without references to elsewhere.
constexpr const char* kFormats[] = {"png", "jpeg", "gif", "bmp"};

} // namespace

HelpContent<QImage> ReadHelpPicture(const CHelpFile& file, const QString& name, qint64 limit) {
    auto [bytes, failure] = file.Read(name, kLargestPicture);
    if (!failure.isEmpty())
        return {{}, failure};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    if (std::ranges::none_of(kFormats, [&](const char* known) { return format == known; }))
        return {{}, QStringLiteral("%1 cannot be shown: it is no PNG, JPEG, GIF or BMP picture.").arg(name)};
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > limit)
        return {
            {},
            QStringLiteral("%1 cannot be shown: a topic's pictures may hold %2 pixels.").arg(name).arg(kMostPixels)};
    QImage picture = size.isEmpty() ? QImage() : reader.read();
    if (picture.isNull())
        return {{}, QStringLiteral("%1 cannot be shown: it is damaged.").arg(name)};
    return {std::move(picture), {}};
}

QImage PictureOf(const QString& sentence, const QWidget& widget) {
    const int margin = widget.fontMetrics().height() / 2;
    const QSize size =
        widget.fontMetrics().size(Qt::TextSingleLine, sentence).grownBy({margin, margin, margin, margin});
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(widget.font());
    painter.setPen(widget.palette().color(QPalette::Text));
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    painter.drawText(picture.rect(), Qt::AlignCenter, sentence);
    return picture;
}

} // namespace krt550
