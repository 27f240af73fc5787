#include "wizard/platform/group_box.h"

#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include <algorithm>

namespace krt550 {
namespace {

/// Above the frame, below the title.
constexpr int kTitleMargin = 3;

/// A shade laid over the window's colour.
struct Shade {
    int grey;
    int alpha;
};
constexpr Shade kLine{0x75, 50};
constexpr Shade kEdge{0, 7};
constexpr Shade kInside{0, 3};

/// Mixed here: Qt lays large translucent areas over each other in threads of their own, which have to be started.
QColor Mix(const QColor& window, Shade shade) {
    const auto mix = [&](int part) { return (part * (255 - shade.alpha) + shade.grey * shade.alpha + 127) / 255; };
    return {mix(window.red()), mix(window.green()), mix(window.blue())};
}

/// The four sides without the corner pixels, so that the corners look round.
void DrawSides(QPainter& painter, const QRect& rect, const QColor& color) {
    const QRect across(rect.left() + 1, rect.top(), rect.width() - 2, 1);
    const QRect down(rect.left(), rect.top() + 1, 1, rect.height() - 2);
    for (const QRect& side :
         {across, across.translated(0, rect.height() - 1), down, down.translated(rect.width() - 1, 0)})
        painter.fillRect(side, color);
}

} // namespace

void CGroupBox::paintEvent(QPaintEvent* event) {
    if (style()->name() != QLatin1String("fusion") || palette().window().style() != Qt::SolidPattern)
        return QGroupBox::paintEvent(event);
    const QColor window = palette().color(QPalette::Window);
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    QRect frame = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, this);
    const int title =
        std::max(style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this), option.fontMetrics.height());
    frame.adjust(1, 1 + kTitleMargin + (option.text.isEmpty() ? 0 : title), 0, 0);
    DrawSides(painter, frame, Mix(window, kLine));
    const QRect inside = frame.adjusted(1, 1, -1, -1);
    DrawSides(painter, inside, Mix(window, kEdge));
    painter.fillRect(inside.adjusted(1, 1, -1, -1), Mix(window, kInside));
    option.subControls &= ~QStyle::SC_GroupBoxFrame;
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

} // namespace krt550
