#pragma once

#include "wizard/platform/dialog_layout.h"

#include <QFont>
#include <QRect>

namespace krt550 {

/// Size of a dialog unit for a font: a quarter of the average width of the letters, an eighth of the line height.
class CDialogUnits {
public:
    explicit CDialogUnits(const QFont& font);
    /// Each edge is rounded for itself, so that neighbours keep touching.
    QRect ToPixels(const DialogRect& rect) const;
    QSize ToPixels(int width, int height) const;

private:
    double m_x;
    double m_y;
};

} // namespace krt550
