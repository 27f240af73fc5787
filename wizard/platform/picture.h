#pragma once

#include <QWidget>

namespace krt550 {

/// Shows a picture of the resources by number, as large as its rectangle allows without distortion.
class CPicture : public QWidget {
    Q_OBJECT

public:
    CPicture(int number, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_number;
    QPixmap m_drawn;
    QSize m_drawnFor;
};

/// A picture of small things among text, for `widget`: in its own size beside text of the usual height, and larger
/// beside larger text.
QPixmap PictureAmongText(int number, const QWidget& widget);

/// Cuts a strip of equal frames into its frames.
QList<QPixmap> FramesOfStrip(const QPixmap& strip, int frames);

} // namespace krt550
