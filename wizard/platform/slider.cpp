#include "wizard/platform/slider.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionSlider>
#include <QWheelEvent>

namespace krt550 {

CSlider::CSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, 100);
    setTickPosition(QSlider::TicksBelow);
    setFocusPolicy(Qt::StrongFocus);
}

void CSlider::SetMark(int position) {
    m_mark = position;
    update();
}

void CSlider::keyPressEvent(QKeyEvent* event) {
    const int former = value();
    QSlider::keyPressEvent(event);
    m_movedByKey = m_movedByKey || value() != former;
}

void CSlider::keyReleaseEvent(QKeyEvent* event) {
    QSlider::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && std::exchange(m_movedByKey, false))
        Q_EMIT released();
}

void CSlider::focusOutEvent(QFocusEvent* event) {
    QSlider::focusOutEvent(event);
    m_movedByKey = false;
}

void CSlider::mouseReleaseEvent(QMouseEvent* event) {
    QSlider::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT released();
}

void CSlider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

int CSlider::MarkX(int position, const QStyleOptionSlider& option) const {
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    return QStyle::sliderPositionFromValue(minimum(), maximum(), position, width() - handle, option.upsideDown) +
           handle / 2;
}

// The style draws marks at even distances only.
void CSlider::paintEvent(QPaintEvent*) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    if (isSliderDown())
        option.activeSubControls = QStyle::SC_SliderHandle;
    QPainter painter(this);
    const int bottom = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this).bottom();
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    for (const int position : {minimum(), m_mark, maximum()}) {
        if (position < minimum() || position > maximum())
            continue;
        const int x = MarkX(position, option);
        painter.drawLine(x, bottom + 2, x, height() - 1);
    }
    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
}

} // namespace krt550
