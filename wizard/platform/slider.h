#pragma once

#include <QSlider>

namespace krt550 {

/// A horizontal slider, 0 to 100 unless told otherwise, with a mark at each end and one in between. It tells when it is
/// let go: by the mouse, or by the key that moved it. The mouse wheel leaves it alone.
class CSlider : public QSlider {
    Q_OBJECT

public:
    explicit CSlider(QWidget* parent = nullptr);

    /// Position of the mark in between; none when it lies outside the range.
    void SetMark(int position);

Q_SIGNALS:
    /// After the mouse button went up, and after a key that has moved the slider did.
    void released();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int MarkX(int position, const QStyleOptionSlider& option) const;

    int m_mark = 50;
    bool m_movedByKey = false;
};

} // namespace krt550
