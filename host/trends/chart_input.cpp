// What a person does to the chart with keyboard and mouse.
#include "host/trends/trend_chart.h"
#include "host/trends/trend_history.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr double kZoomStep = 1.5;
constexpr double kMoveStep = 0.1; ///< as a share of what is shown, as the two below
constexpr double kCursorStep = 0.02;
constexpr double kSmallCursorStep = 0.002;

} // namespace

void CTrendChart::keyPressEvent(QKeyEvent* event) {
    const bool withCtrl = event->modifiers() & Qt::ControlModifier;
    const double step = event->modifiers() & Qt::ShiftModifier ? kSmallCursorStep : kCursorStep;
    const auto moveBy = [this](double seconds) { OnTimesMoved(m_times + seconds); };
    switch (event->key()) {
    case Qt::Key_Left:
        withCtrl ? moveBy(-kMoveStep * m_times.size()) : MoveCursor(m_cursor.value_or(1) - step);
        break;
    case Qt::Key_Right:
        withCtrl ? moveBy(kMoveStep * m_times.size()) : MoveCursor(m_cursor.value_or(0) + step);
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        withCtrl ? ZoomValues(1 / kZoomStep) : ZoomTimes(1 / kZoomStep);
        break;
    case Qt::Key_Minus:
        withCtrl ? ZoomValues(kZoomStep) : ZoomTimes(kZoomStep);
        break;
    case Qt::Key_Home:
        moveBy(-kTrendHistorySeconds);
        break;
    case Qt::Key_End:
        Follow();
        break;
    case Qt::Key_Space:
        m_isFollowing ? Pause() : Follow();
        break;
    default:
        QCustomPlot::keyPressEvent(event);
        return;
    }
    replot(rpQueuedReplot);
}

/// About the cursor, or the middle where there is none.
void CTrendChart::ZoomTimes(double factor) {
    const double center = m_times.lower + m_cursor.value_or(0.5) * m_times.size();
    OnTimesMoved({center + (m_times.lower - center) * factor, center + (m_times.upper - center) * factor});
}

void CTrendChart::ZoomValues(double factor) {
    for (const auto& strip : m_strips)
        strip->Values().scaleRange(factor);
}

void CTrendChart::MoveCursor(double share) {
    m_cursor = std::clamp(share, 0.0, 1.0);
    DrawCursor();
}

std::optional<double> CTrendChart::CursorTime() const {
    return m_cursor ? std::optional(m_times.lower + *m_cursor * m_times.size()) : std::nullopt;
}

void CTrendChart::ShowValues(std::optional<double> cursor) {
    QStringList values;
    for (const auto& strip : m_strips)
        values.append(strip->ShowValues(cursor, strip == m_strips.front()));
    if (cursor && QAccessible::isActive())
        setAccessibleDescription(QStringLiteral("%1: %2").arg(
            QCPAxisTickerDateTime::keyToDateTime(*cursor).toString(QStringLiteral("hh:mm:ss.zzz")),
            values.join(QLatin1String(", "))));
}

/// Without the curves, which stand where they are.
void CTrendChart::DrawCursor() {
    ShowValues(CursorTime());
    layer(QStringLiteral("legend"))->replot();
    layer(QStringLiteral("overlay"))->replot();
}

void CTrendChart::wheelEvent(QWheelEvent* event) {
    const bool zoomsValues = event->modifiers() & Qt::ControlModifier;
    for (const auto& strip : m_strips)
        strip->Place().setRangeZoom(zoomsValues ? Qt::Vertical : Qt::Horizontal);
    QCustomPlot::wheelEvent(event);
}

void CTrendChart::mousePressEvent(QMouseEvent* event) {
    setSelectionRectMode(event->modifiers() & Qt::ShiftModifier ? QCP::srmZoom : QCP::srmNone);
    QCustomPlot::mousePressEvent(event);
}

void CTrendChart::mouseMoveEvent(QMouseEvent* event) {
    QCustomPlot::mouseMoveEvent(event);
    if (m_strips.empty())
        return;
    const QCPAxisRect& place = m_strips.front()->Place();
    const double share = (event->position().x() - place.left()) / std::max(place.width(), 1);
    if (share < 0 || share > 1) {
        leaveEvent(event);
        return;
    }
    MoveCursor(share);
}

void CTrendChart::leaveEvent(QEvent*) {
    m_cursor.reset();
    DrawCursor();
}

} // namespace krt550
