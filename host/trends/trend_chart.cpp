#include "host/trends/trend_chart.h"

#include "host/trends/trend_history.h"

#include <QDateTime>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

constexpr double kLeastSpan = 0.5; ///< [s] that can be zoomed to
constexpr int kLeastFrameMs = 100; ///< between two pictures
constexpr int kLongestFrameMs = 1000;
/// Time that is left to others, as a multiple of the time that a picture takes: screens differ in size.
constexpr double kOtherStripsShare = 12;
constexpr double kPictureScale = 2;

} // namespace

const QString CTrendChart::kHelp = QStringLiteral(
    "Wheel: zoom in time; with Ctrl: in values. Drag: move; with Shift: zoom to a frame. Double click: follow again.\n"
    "Keys: Left, Right cursor (with Shift in small steps); Ctrl+Left, Ctrl+Right move; +, - zoom in time; Ctrl++, "
    "Ctrl+- in "
    "values; Home oldest sample; End follow again; Space pause.");

CTrendChart::CTrendChart(CTrendHistory& history, QWidget* parent) : QCustomPlot(parent), m_history(history) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(QStringLiteral("Trend chart"));
    setWhatsThis(kHelp);
    setLocale(QLocale::c());
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    setAutoAddPlottableToLegend(false);
    setPlottingHint(QCP::phFastPolylines);
    setNoAntialiasingOnDrag(true);
    layer(QStringLiteral("legend"))->setMode(QCPLayer::lmBuffered);
    plotLayout()->setMargins({6, 4, 2, 4});
    m_frames.callOnTimeout(this, [this] { Draw(); });
    connect(this, &QCustomPlot::afterLayout, this, [this] { OnLayout(); });
    connect(this, &QCustomPlot::mouseDoubleClick, this, [this] { Follow(); });
    Rebuild();
}

void CTrendChart::Rebuild() {
    {
        const QScopedValueRollback own(m_isOwnChange, true);
        m_strips.clear();
        clearItems();
        clearPlottables();
        plotLayout()->clear();
        setBackground(palette().brush(QPalette::Base));
        for (const TrendSignal& signal : m_history.Signals())
            AddStrip(signal);
        for (const auto& strip : m_strips)
            strip->ShowTimes(strip == m_strips.back());
    }
    MoveTo(m_isFollowing ? QCPRange(m_history.End() - m_window, m_history.End()) : m_times);
}

void CTrendChart::AddStrip(const TrendSignal& signal) {
    const auto found = std::ranges::find_if(m_strips, [&](const auto& strip) { return strip->Takes(signal); });
    if (found != m_strips.end()) {
        (*found)->Add(signal);
        return;
    }
    m_strips.push_back(std::make_unique<CTrendStrip>(*this, m_margins, signal));
    CTrendStrip& strip = *m_strips.back();
    strip.Add(signal);
    strip.Times().setTicker(m_ticker);
    connect(&strip.Times(), qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
            [this](const QCPRange& times) { OnTimesMoved(times); });
    connect(&strip.Values(), qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, [this, &strip] {
        if (m_isOwnChange)
            return;
        strip.SetFits(false);
        Pause();
    });
}

void CTrendChart::SetWindow(double seconds) {
    m_window = seconds;
    Follow();
}

void CTrendChart::Follow() {
    for (const auto& strip : m_strips)
        strip->SetFits(true);
    const bool wasFollowing = std::exchange(m_isFollowing, true);
    MoveTo({m_history.End() - m_window, m_history.End()});
    if (!wasFollowing && onFollowing)
        onFollowing();
}

void CTrendChart::Pause() {
    if (std::exchange(m_isFollowing, false) && onFollowing)
        onFollowing();
}

/// Shows a span of time, and draws it.
void CTrendChart::MoveTo(const QCPRange& times) {
    ShowTimes(times);
    SetFrameTime();
    replot(rpQueuedReplot);
}

void CTrendChart::ShowTimes(const QCPRange& times) {
    const QScopedValueRollback own(m_isOwnChange, true);
    m_times = times;
    m_drawnEnd = m_history.End();
    m_ticker->setDateTimeFormat(times.size() < 8 ? QStringLiteral("hh:mm:ss.zzz") : QStringLiteral("hh:mm:ss"));
    for (const auto& strip : m_strips) {
        strip->Times().setRange(times);
        strip->FitValues(times);
    }
    if (!m_strips.empty())
        m_strips.back()->Times().setLabel(
            QCPAxisTickerDateTime::keyToDateTime(times.upper).toString(QStringLiteral("yyyy-MM-dd")));
    ShowValues(CursorTime());
}

/// A person has moved or zoomed one strip.
void CTrendChart::OnTimesMoved(const QCPRange& times) {
    if (m_isOwnChange)
        return;
    QCPRange held = times;
    if (held.size() < kLeastSpan)
        held = {held.center() - kLeastSpan / 2, held.center() + kLeastSpan / 2};
    // At the right end there is some room, so that the last samples can be zoomed from all sides.
    ShowTimes(held.bounded(m_history.End() - kTrendHistorySeconds, m_history.End() + held.size() / 20));
    Pause();
    SetFrameTime();
}

void CTrendChart::Draw() {
    if (!m_isFollowing || m_history.End() == m_drawnEnd || window()->isMinimized() || visibleRegion().isEmpty())
        return;
    ShowTimes({m_history.End() - m_window, m_history.End()});
    replot(rpQueuedRefresh);
    SetFrameTime();
}

/// A picture for each pixel that the curves move on.
void CTrendChart::SetFrameTime() {
    const double pixel = m_times.size() * 1000 / std::max(width(), 1);
    const double wanted = std::max(pixel, kOtherStripsShare * replotTime(true));
    m_frames.setInterval(std::clamp(int(wanted), kLeastFrameMs, kLongestFrameMs));
}

QPixmap CTrendChart::Picture() {
    ShowValues(std::nullopt);
    const QPixmap picture = toPixmap(width(), height(), kPictureScale);
    ShowValues(CursorTime());
    return picture;
}

void CTrendChart::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        Rebuild();
}

void CTrendChart::showEvent(QShowEvent* event) {
    QCustomPlot::showEvent(event);
    m_frames.start();
    Draw();
}

void CTrendChart::hideEvent(QHideEvent* event) {
    QCustomPlot::hideEvent(event);
    m_frames.stop();
}

void CTrendChart::resizeEvent(QResizeEvent* event) {
    SetFrameTime();
    ShowValues(CursorTime());
    QCustomPlot::resizeEvent(event);
}

/// As narrow as one likes; as high as its strips need, once they have been laid out.
QSize CTrendChart::minimumSizeHint() const {
    return {1, plotLayout()->minimumOuterSizeHint().height()};
}

void CTrendChart::OnLayout() {
    setMinimumHeight(minimumSizeHint().height());
    const int label = fontMetrics().horizontalAdvance(m_ticker->dateTimeFormat());
    m_ticker->setTickCount(std::clamp(width() * 2 / (3 * label), 2, 8));
    const auto fitted = std::ranges::count_if(m_strips, [](const auto& strip) { return strip->FitMarks(); });
    if (fitted > 0)
        replot(rpQueuedReplot);
}

void CTrendChart::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

} // namespace krt550
