#pragma once

#include "host/trends/trend_strip.h"

#include <QTimer>

#include "host/trends/plot.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace krt550 {

class CTrendHistory;

/// Strips of curves, one below the other, over one axis of time. It follows the newest samples until a person moves or
/// zooms it: the wheel zooms in time, with Ctrl in values, dragging moves, with Shift it zooms to a frame; the keys are
/// in kHelp. Draws while it can be seen, and no oftener than something new is seen of it.
class CTrendChart : public QCustomPlot {
public:
    static const QString kHelp;

    /// Borrowed.
    explicit CTrendChart(CTrendHistory& history, QWidget* parent = nullptr);

    /// Other signals were chosen in the history. To be called at once.
    void Rebuild();
    /// The time that is shown when it follows [s], up to the history's.
    void SetWindow(double seconds);

    bool IsFollowing() const { return m_isFollowing; }
    /// Shows the newest samples in the window, with the values fitted.
    void Follow();
    /// The picture stands as it is, whatever is sampled.
    void Pause();
    std::function<void()> onFollowing; ///< called when it follows or stands

    /// The time from left to right [s since 1970-01-01 UTC].
    QCPRange ShownTimes() const { return m_times; }
    /// The chart as it is shown, without the cursor, in twice the resolution.
    QPixmap Picture();
    /// Draws what is new, if it is to be seen.
    void Draw();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void AddStrip(const TrendSignal& signal);
    void MoveTo(const QCPRange& times);
    void ShowTimes(const QCPRange& times);
    void OnTimesMoved(const QCPRange& times);
    void ZoomTimes(double factor);
    void ZoomValues(double factor);
    void MoveCursor(double share);
    void ShowValues(std::optional<double> cursor);
    std::optional<double> CursorTime() const;
    void DrawCursor();
    void OnLayout();
    void SetFrameTime();
    QSize minimumSizeHint() const override;

    CTrendHistory& m_history;
    QCPMarginGroup m_margins{this};
    QSharedPointer<QCPAxisTickerDateTime> m_ticker{new QCPAxisTickerDateTime};
    std::vector<std::unique_ptr<CTrendStrip>> m_strips;
    QTimer m_frames; ///< by the time of who looks at it, whatever the drive's clock does
    QCPRange m_times;
    double m_window = 60;
    double m_drawnEnd = 0;
    bool m_isFollowing = true;
    bool m_isOwnChange = false;     ///< ranges that change now are not changed by a person
    std::optional<double> m_cursor; ///< its place between left and right, 0 to 1
};

} // namespace krt550
