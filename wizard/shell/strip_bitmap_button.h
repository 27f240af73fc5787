#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace krt550 {

/// Button with a tool tip of its own, which can be switched off.
class CToolTipButton : public QAbstractButton {
    Q_OBJECT

public:
    using QAbstractButton::QAbstractButton;
    void SetToolTipText(const QString& text, bool active);
};

/// Button that draws itself from a strip of equal frames: up, pressed, and in some strips disabled.
class CStripBitmapButton : public CToolTipButton {
    Q_OBJECT

public:
    explicit CStripBitmapButton(QWidget* parent = nullptr);

    /// Loads the strip and takes the size of one frame, without moving. The button with a latch, which is known by its
    /// id, is checkable from then on.
    void LoadStripBitmap(int number);
    bool IsBitmapLoaded() const { return m_loaded; }

    /// Frame that is drawn now: 0 up, 1 pressed, 2 disabled.
    int GetShownFrame() const;

    QSize sizeHint() const override { return m_frame; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_number = 0;
    int m_frames = 2;
    QSize m_frame;
    bool m_loaded = false;
};

} // namespace krt550
