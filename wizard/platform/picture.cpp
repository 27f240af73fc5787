#include "wizard/platform/picture.h"

#include "wizard/platform/resources.h"

#include <QPainter>

namespace krt550 {

CPicture::CPicture(int number, QWidget* parent) : QWidget(parent), m_number(number) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CPicture::paintEvent(QPaintEvent*) {
    const qreal ratio = devicePixelRatioF();
    const QSize wanted = size() * ratio;
    if (m_drawnFor != wanted) {
        m_drawn = CResources::Current().GetPicture(m_number, size(), ratio);
        m_drawnFor = wanted;
    }
    const QSizeF drawn = m_drawn.deviceIndependentSize();
    QPainter painter(this);
    painter.drawPixmap(QPointF((width() - drawn.width()) / 2, (height() - drawn.height()) / 2), m_drawn);
}

QPixmap PictureAmongText(int number, const QWidget& widget) {
    constexpr qreal kUsualHeight = 15; // of a line of text at 9 pt, in pixels
    const qreal ratio = widget.devicePixelRatioF();
    const QPixmap usual = CResources::Current().GetPicture(number, {}, ratio);
    const qreal growth = widget.fontMetrics().height() / kUsualHeight;
    if (growth <= 1)
        return usual;
    return CResources::Current().GetPicture(number, (usual.deviceIndependentSize() * growth).toSize(), ratio);
}

QList<QPixmap> FramesOfStrip(const QPixmap& strip, int frames) {
    QList<QPixmap> result;
    const qreal width = static_cast<qreal>(strip.width()) / frames;
    for (int i = 0; i < frames; ++i) {
        const int left = qRound(i * width);
        result.append(strip.copy(left, 0, qRound((i + 1) * width) - left, strip.height()));
    }
    return result;
}

} // namespace krt550
