#include "wizard/platform/dialog_units.h"

#include <QFontMetricsF>

namespace krt550 {

CDialogUnits::CDialogUnits(const QFont& font) {
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const QFontMetricsF metrics(font);
    m_x = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size()) / 4;
    m_y = metrics.height() / 8;
}

QRect CDialogUnits::ToPixels(const DialogRect& rect) const {
    const QPoint topLeft(qRound(rect.x * m_x), qRound(rect.y * m_y));
    const QPoint bottomRight(qRound((rect.x + rect.width) * m_x), qRound((rect.y + rect.height) * m_y));
    return {topLeft, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y())};
}

QSize CDialogUnits::ToPixels(int width, int height) const {
    return {qRound(width * m_x), qRound(height * m_y)};
}

} // namespace krt550
