#include "host/report/chart.h"

#include "host/report/chart_axis.h"
#include "host/report/curve_path.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

#include <iterator>
#include <span>

namespace krt550 {
namespace {

constexpr double kLeft = 52;
constexpr double kRight = 8;
constexpr double kTop = 16;
constexpr double kBottom = 30;
constexpr double kBetween = 16;

const QColor kInk(0x33, 0x33, 0x33);
const QColor kGrid(0xdd, 0xdd, 0xdd);
const QColor kFrame(0x99, 0x99, 0x99);

struct CurveDef {
    TraceSignal signal;
    const char* name;
    QRgb color;
    Qt::PenStyle style = Qt::SolidLine;
};

struct PanelDef {
    double share; ///< of the height
    const char* unit;
    double least; ///< the axis is at least so long, so that noise does not look like a signal
    std::span<const CurveDef> curves;
};

constexpr CurveDef kSpeeds[] = {{Reference, "Reference", 0x777777, Qt::DashLine}, {Speed, "Speed", 0x1f5fa8}};
constexpr CurveDef kArmature[] = {{ArmatureCurrent, "Armature current", 0xb3402a}};
constexpr CurveDef kField[] = {{FieldCurrent, "Field current", 0x2c7a4b}};
constexpr CurveDef kProgress[] = {{Progress, "Progress", 0x6b4fa0}};
constexpr PanelDef kPanels[] = {
    {0.34, "rpm", 10, kSpeeds}, {0.27, "A", 1, kArmature}, {0.2, "A", 0.1, kField}, {0.19, "%", 100, kProgress}};

QString NumberText(double number, int decimals) {
    const QString text = QString::number(number, 'f', decimals);
    return text.toDouble() == 0 ? QString::number(0.0, 'f', decimals) : text;
}

class CChart {
public:
    CChart(QPainter& painter, const RunFinding& run) : m_painter(painter), m_run(run) {
        const double end = run.trace.empty() ? 1 : Seconds(run.trace.back());
        m_time = MakeAxis(0, std::max(end, 0.1), 10);
        m_time.high = std::max(end, 0.1);
    }

    void Draw();

private:
    double Seconds(const TracePoint& point) const { return double(point.time - m_run.begin) / 1000; }
    ChartAxis AxisOf(const PanelDef& panel) const;
    void DrawPanel(const PanelDef& panel, const QRectF& place, bool isLast);
    void DrawGrid(const QRectF& place, const ChartAxis& values, bool isLast);
    void DrawLegend(const PanelDef& panel, const QRectF& place);
    void DrawCurve(const CurveDef& curve, const QRectF& place, const ChartAxis& values);
    void Text(const QRectF& place, int flags, const QString& text, const QColor& color = kInk);

    QPainter& m_painter;
    const RunFinding& m_run;
    ChartAxis m_time;
};

void CChart::Draw() {
    m_painter.setRenderHint(QPainter::Antialiasing);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(8);
    m_painter.setFont(font);
    const double room = kChartHeight - kTop - kBottom - kBetween * double(std::size(kPanels) - 1);
    double top = kTop;
    for (const PanelDef& panel : kPanels) {
        const QRectF place(kLeft, top, kChartWidth - kLeft - kRight, room * panel.share);
        DrawPanel(panel, place, &panel == std::end(kPanels) - 1);
        top = place.bottom() + kBetween;
    }
}

ChartAxis CChart::AxisOf(const PanelDef& panel) const {
    double low = 0;
    double high = 0;
    for (const TracePoint& point : m_run.trace)
        for (const CurveDef& curve : panel.curves)
            if (const auto value = point.values[curve.signal]) {
                low = std::min(low, *value);
                high = std::max(high, *value);
            }
    high = std::max(high, low + panel.least);
    return MakeAxis(low, high, panel.share > 0.3 ? 5 : 4);
}

void CChart::DrawPanel(const PanelDef& panel, const QRectF& place, bool isLast) {
    const ChartAxis values = AxisOf(panel);
    DrawGrid(place, values, isLast);
    m_painter.save();
    m_painter.setClipRect(place.adjusted(-1, -1, 1, 1), Qt::IntersectClip);
    for (const CurveDef& curve : panel.curves)
        DrawCurve(curve, place, values);
    m_painter.restore();
    DrawLegend(panel, place);
    m_painter.setPen(QPen(kFrame, 0.6));
    m_painter.drawRect(place);
}

void CChart::DrawGrid(const QRectF& place, const ChartAxis& values, bool isLast) {
    const QPen grid(kGrid, 0.5);
    for (int i = 0; values.low + i * values.step <= values.high + values.step / 2; ++i) {
        const double value = values.low + i * values.step;
        const double y = place.bottom() - (value - values.low) / values.Length() * place.height();
        m_painter.setPen(grid);
        m_painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
        Text({place.left() - 46, y - 6, 42, 12}, Qt::AlignRight | Qt::AlignVCenter, NumberText(value, values.decimals));
    }
    for (int i = 0; i * m_time.step <= m_time.high + 1e-9; ++i) {
        const double x = place.left() + i * m_time.step / m_time.Length() * place.width();
        m_painter.setPen(grid);
        m_painter.drawLine(QPointF(x, place.top()), QPointF(x, place.bottom()));
        if (isLast)
            Text({x - 30, place.bottom() + 3, 60, 12}, Qt::AlignHCenter | Qt::AlignTop,
                 NumberText(i * m_time.step, m_time.decimals));
    }
    if (isLast)
        Text({place.left(), place.bottom() + 14, place.width(), 12}, Qt::AlignHCenter | Qt::AlignTop,
             QStringLiteral("Time since the begin of the run [s]"));
}

void CChart::DrawLegend(const PanelDef& panel, const QRectF& place) {
    double x = place.left();
    const double y = place.top() - 11;
    for (const CurveDef& curve : panel.curves) {
        const QString name =
            QLatin1String(curve.name) + QLatin1String(" [") + QLatin1String(panel.unit) + QLatin1Char(']');
        m_painter.setPen(QPen(QColor(curve.color), 1.2, curve.style));
        m_painter.drawLine(QPointF(x, y + 5), QPointF(x + 16, y + 5));
        Text({x + 20, y - 1, 140, 12}, Qt::AlignLeft | Qt::AlignVCenter, name);
        x += 140;
    }
}

void CChart::DrawCurve(const CurveDef& curve, const QRectF& place, const ChartAxis& values) {
    const QPainterPath path = CurvePath(m_run.trace, curve.signal, [&](const TracePoint& point, double value) {
        return QPointF(place.left() + Seconds(point) / m_time.Length() * place.width(),
                       place.bottom() - (value - values.low) / values.Length() * place.height());
    });
    m_painter.setPen(QPen(QColor(curve.color), 1, curve.style, Qt::FlatCap, Qt::RoundJoin));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawPath(path);
}

void CChart::Text(const QRectF& place, int flags, const QString& text, const QColor& color) {
    m_painter.setPen(color);
    m_painter.drawText(place, flags | Qt::TextDontClip, text);
}

} // namespace

void DrawChart(QPainter& painter, const RunFinding& run) {
    CChart(painter, run).Draw();
}

QString ChartSvg(const RunFinding& run) {
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    // One unit of the picture is one point, so that sizes of texts mean the same here and on paper.
    generator.setResolution(72);
    generator.setSize({kChartWidth, kChartHeight});
    generator.setViewBox(QRect(0, 0, kChartWidth, kChartHeight));
    generator.setTitle(run.title);
    generator.setDescription(
        QStringLiteral("Speed, reference, armature current, field current and progress over time"));
    QPainter painter(&generator);
    DrawChart(painter, run);
    painter.end();
    const QString text = QString::fromUtf8(buffer.data());
    return text.mid(text.indexOf(QLatin1String("<svg"))).trimmed();
}

} // namespace krt550
