#include "wizard/platform/fitting_scroll_area.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

namespace krt550 {

CFittingScrollArea::CFittingScrollArea(QWidget& content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(&content);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now && widget() && widget()->isAncestorOf(now))
            ensureWidgetVisible(now);
    });
}

void CFittingScrollArea::SetRoom(QSize room) {
    m_room = room;
    updateGeometry();
}

QSize CFittingScrollArea::sizeHint() const {
    if (!widget())
        return {};
    const QSize whole = widget()->sizeHint().expandedTo(widget()->minimumSize());
    if (m_room.isEmpty() || whole.boundedTo(m_room) == whole)
        return whole;
    // The bar of one direction takes room from the other.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return (whole + QSize(bar, bar)).boundedTo(m_room);
}

bool CFittingScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QSize FrameOf(const QWidget& window) {
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return {title / 2, title + title / 2};
}

QSize RoomOnScreen(const QWidget& window) {
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return {};
    return window.screen()->availableGeometry().size() - FrameOf(window);
}

} // namespace krt550
