#include "wizard/shell/strip_bitmap_button.h"

#include "wizard/platform/picture.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

constexpr int kThreeFrameStrips[] = {116, 10070, 10071, 10072};
/// The local/remote button stays down until it is pressed again.
constexpr int kLatchingButton = 8312;

} // namespace

void CToolTipButton::SetToolTipText(const QString& text, bool active) {
    setToolTip(active ? text : QString());
    setAccessibleName(text);
}

CStripBitmapButton::CStripBitmapButton(QWidget* parent) : CToolTipButton(parent) {}

void CStripBitmapButton::LoadStripBitmap(int number) {
    const QSize strip = PictureAmongText(number, *this).deviceIndependentSize().toSize();
    m_number = number;
    m_frames = std::ranges::find(kThreeFrameStrips, number) != std::end(kThreeFrameStrips) ? 3 : 2;
    m_frame = QSize(strip.width() / m_frames, strip.height());
    if (!m_frame.isEmpty())
        resize(m_frame);
    setCheckable(objectName().toInt() == kLatchingButton);
    m_loaded = true;
    update();
}

int CStripBitmapButton::GetShownFrame() const {
    if (!isEnabled())
        return 2;
    return isDown() || isChecked() ? 1 : 0;
}

void CStripBitmapButton::paintEvent(QPaintEvent*) {
    if (!m_loaded)
        return;
    const QList<QPixmap> frames = FramesOfStrip(PictureAmongText(m_number, *this), m_frames);
    QPainter painter(this);
    const int frame = GetShownFrame();
    if (frame < frames.size()) {
        painter.drawPixmap(0, 0, frames[frame]);
    } else {
        // A strip without a disabled frame shows the one that it has, as the style greys an icon.
        QStyleOption option;
        option.initFrom(this);
        const QPixmap& shown = frames[isChecked() ? 1 : 0];
        painter.drawPixmap(0, 0, style()->generatedIconPixmap(QIcon::Disabled, shown, &option));
    }
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(2, 2, -2, -2);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

} // namespace krt550
