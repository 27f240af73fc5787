#pragma once

#include <QGroupBox>

namespace krt550 {

/// A group box whose frame is drawn with lines where Qt's own style would load a picture for it, and with that every
/// plug-in for image formats: that is a tenth of the time until the start page is there.
class CGroupBox : public QGroupBox {
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace krt550
