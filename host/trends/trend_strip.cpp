#include "host/trends/trend_strip.h"

#include "host/trends/curve_colors.h"
#include "host/trends/trend_history.h"

#include "host/trends/plot.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

/// An axis is at least so many steps of its parameters' resolution long, so that noise does not look like a signal.
constexpr double kLeastSteps = 10;
constexpr double kMargin = 0.1;    ///< above and below the curves, as a share of what they span
constexpr double kLeastFill = 0.4; ///< an axis that the curves fill less is fitted anew
constexpr int kLeastLines = 4;     ///< height of a strip, in lines of text

} // namespace

CTrendStrip::CTrendStrip(QCustomPlot& plot, QCPMarginGroup& margins, const TrendSignal& signal)
    : m_plot(plot), m_legend(new QCPLegend), m_place(new QCPAxisRect(&plot)) {
    QCPLayoutGrid& layout = *plot.plotLayout();
    const int row = layout.rowCount();
    layout.addElement(row, 0, m_legend);
    layout.addElement(row + 1, 0, m_place);
    layout.setRowStretchFactor(row, 0.001);
    m_legend->setLayer(QStringLiteral("legend"));
    m_legend->setFont(plot.font());
    m_legend->setBorderPen(Qt::NoPen);
    m_legend->setBrush(Qt::NoBrush);
    m_legend->setMargins({2, 2, 2, 0});
    m_legend->setIconSize(18, plot.fontMetrics().height());
    m_legend->setRowSpacing(0);
    m_place->setMarginGroup(QCP::msLeft | QCP::msRight, &margins);
    m_place->setRangeDrag(Qt::Horizontal);
    m_place->setMinimumMargins({0, 2, 12, 2});
    m_place->setMinimumSize(80, kLeastLines * plot.fontMetrics().height());
    for (const QCPAxis::AxisType side : {QCPAxis::atTop, QCPAxis::atRight}) {
        m_place->axis(side)->setVisible(true);
        m_place->axis(side)->setTicks(false);
        m_place->axis(side)->setTickLabels(false);
    }
    Values().setNumberFormat(QStringLiteral("g"));
    Values().setLabel(signal.parameter.unit);
    MakeCursor();
    SetColors(plot.palette());
}

bool CTrendStrip::Takes(const TrendSignal& signal) const {
    const ParameterDescription& first = m_curves.front().signal->parameter;
    return first.unit == signal.parameter.unit && first.decimals == signal.parameter.decimals;
}

void CTrendStrip::Add(const TrendSignal& signal) {
    QCPGraph* graph = m_plot.addGraph(&Times(), &Values());
    graph->setData(signal.curve);
    graph->setPen(QPen(CurveColor(m_plot.palette(), signal.color), 1.4));
    graph->addToLegend(m_legend);
    m_curves.push_back({&signal, graph});
}

void CTrendStrip::ShowTimes(bool isShown) {
    Times().setTickLabels(isShown);
    if (!isShown)
        Times().setLabel({});
}

QCPAxis& CTrendStrip::Times() const {
    return *m_place->axis(QCPAxis::atBottom);
}

QCPAxis& CTrendStrip::Values() const {
    return *m_place->axis(QCPAxis::atLeft);
}

void CTrendStrip::SetColors(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    for (QCPAxis* axis : m_place->axes()) {
        axis->setBasePen(Mixed(base, text, 0.5));
        axis->setTickPen(Mixed(base, text, 0.5));
        axis->setSubTickPen(Qt::NoPen);
        axis->setTickLabelColor(text);
        axis->setLabelColor(text);
        axis->setTickLabelFont(m_plot.font());
        axis->setLabelFont(m_plot.font());
        axis->grid()->setPen(QPen(Mixed(base, text, 0.18), 1));
        axis->grid()->setZeroLinePen(QPen(Mixed(base, text, 0.4), 1));
    }
    m_legend->setTextColor(text);
    m_line->setPen(QPen(text, 1));
    QColor veil = base;
    veil.setAlpha(215);
    m_time->setBrush(veil);
    m_time->setColor(text);
}

void CTrendStrip::MakeCursor() {
    m_line = new QCPItemLine(&m_plot);
    m_time = new QCPItemText(&m_plot);
    for (QCPItemPosition* position : {m_line->start, m_line->end, m_time->position}) {
        position->setTypeX(QCPItemPosition::ptPlotCoords);
        position->setTypeY(QCPItemPosition::ptAxisRectRatio);
        position->setAxes(&Times(), &Values());
        position->setAxisRect(m_place);
    }
    for (QCPAbstractItem* item : std::initializer_list<QCPAbstractItem*>{m_line, m_time}) {
        item->setLayer(QStringLiteral("overlay"));
        item->setClipToAxisRect(false);
        item->setVisible(false);
    }
    m_time->setFont(m_plot.font());
    m_time->setTextAlignment(Qt::AlignLeft);
    m_time->setPadding({6, 2, 6, 2});
}

QString CTrendStrip::ShowValues(std::optional<double> cursor, bool isFirst) {
    const auto textOf = [](const TrendSignal& signal, std::optional<double> value) {
        return value ? signal.TextOf(*value) : QStringLiteral("no value");
    };
    int widest = 1;
    QStringList there;
    for (const Curve& curve : m_curves) {
        const QString& name = curve.signal->parameter.displayName();
        const QString now = textOf(*curve.signal, CTrendHistory::LastValue(*curve.signal));
        const QString present = QStringLiteral("%1: %2").arg(name, now);
        const QString atCursor = QStringLiteral(" (cursor: %1)");
        // The cursor's value has its room whether it is there or not, so that columns do not come and go with it.
        widest = std::max(widest, m_plot.fontMetrics().horizontalAdvance(present + atCursor.arg(now)));
        if (cursor)
            there.append(textOf(*curve.signal, CTrendHistory::ValueAt(*curve.signal, *cursor)));
        curve.graph->setName(cursor ? present + atCursor.arg(there.last()) : present);
        if (cursor)
            there.last().prepend(name + QLatin1Char(' '));
    }
    SetColumns(widest);
    PlaceCursor(cursor, isFirst);
    return there.join(QLatin1String(", "));
}

void CTrendStrip::SetColumns(int widest) {
    // Icon, margins, and room for more digits.
    const int width = widest + 30 + m_plot.fontMetrics().averageCharWidth() * 4;
    const int columns = std::clamp(m_plot.width() / width, 1, int(m_curves.size()));
    if (columns == m_legend->wrap())
        return;
    m_legend->setWrap(columns);
    m_legend->setFillOrder(QCPLegend::foColumnsFirst);
}

void CTrendStrip::PlaceCursor(std::optional<double> time, bool isFirst) {
    m_line->setVisible(time.has_value());
    m_time->setVisible(time && isFirst);
    if (!time)
        return;
    m_line->start->setCoords(*time, 0);
    m_line->end->setCoords(*time, 1);
    m_time->position->setCoords(*time, 0.03);
    const bool isLeft = Times().range().center() > *time;
    m_time->setPositionAlignment(Qt::AlignTop | (isLeft ? Qt::AlignLeft : Qt::AlignRight));
    m_time->setText(QCPAxisTickerDateTime::keyToDateTime(*time).toString(QStringLiteral("hh:mm:ss.zzz")));
}

bool CTrendStrip::FitMarks() {
    const int count = std::clamp(m_place->height() / (2 * m_plot.fontMetrics().height()), 2, 6);
    if (count == Values().ticker()->tickCount())
        return false;
    Values().ticker()->setTickCount(count);
    return true;
}

void CTrendStrip::FitValues(const QCPRange& times) {
    if (!m_fits)
        return;
    QCPRange all;
    bool isFirst = true;
    for (const Curve& curve : m_curves) {
        bool isFound = false;
        const QCPRange range = curve.graph->getValueRange(isFound, QCP::sdBoth, times);
        if (!isFound)
            continue;
        all = isFirst ? range : all.expanded(range);
        isFirst = false;
    }
    if (isFirst)
        return;
    const double least = kLeastSteps * std::pow(10, -m_curves.front().signal->parameter.decimals);
    const double span = std::max(all.size(), least);
    const QCPRange shown = Values().range();
    if (shown.contains(all.lower) && shown.contains(all.upper) && span >= kLeastFill * shown.size())
        return;
    const double half = span * (0.5 + kMargin);
    Values().setRange(all.center() - half, all.center() + half);
}

} // namespace krt550
