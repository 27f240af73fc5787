#pragma once

#include <QScrollArea>

namespace krt550 {

/// Shows a widget as a whole where there is room for it, and scrolls it where there is not: whatever gets the focus is
/// brought into view. It follows the widget's size.
class CFittingScrollArea : public QScrollArea {
    Q_OBJECT

public:
    /// `content` becomes the area's; takeWidget gives it back.
    CFittingScrollArea(QWidget& content, QWidget* parent);
    /// The most that the area takes, in pixels; an empty room means no limit, as at first.
    void SetRoom(QSize room);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize m_room;
};

/// Room for the frame that a window gets on the screen: an estimate, since only the window manager knows.
QSize FrameOf(const QWidget& window);

/// What a window may take of its screen, its frame left out; empty on a platform whose screen nobody looks at.
QSize RoomOnScreen(const QWidget& window);

} // namespace krt550
