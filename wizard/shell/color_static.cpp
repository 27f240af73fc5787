#include "wizard/shell/color_static.h"

#include <QPainter>

namespace krt550 {
namespace {

// Numbers of the looks.
constexpr int kPlain = 0;
constexpr int kInverted = 1;
constexpr int kNeutral = 2;
constexpr int kGrey = 3;
constexpr int kBad = 4;
constexpr int kGood = 5;

const QColor kGreen(0, 255, 0);
const QColor kRed(255, 0, 0);

} // namespace

CColorStatic::CColorStatic(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void CColorStatic::Show(int look, std::optional<QColor> brush) {
    m_look = look;
    m_brush = brush;
    update();
}

void CColorStatic::SetLook(StaticLook look) {
    const QColor face = palette().color(QPalette::Button);
    switch (look) {
    case StaticLook::Good:
        return Show(kGood, kGreen);
    case StaticLook::Bad:
        return Show(kBad, kRed);
    case StaticLook::Neutral:
        return Show(kNeutral, face);
    case StaticLook::Grey:
        m_lightGrey = true;
        return Show(kGrey, face);
    }
}

void CColorStatic::SetInverted(bool inverted) {
    if (inverted)
        Show(kInverted, m_brush);
    else if (m_lightGrey)
        SetLook(StaticLook::Grey);
    else
        Show(kPlain, palette().color(QPalette::Button));
}

void CColorStatic::SetBoldFont() {
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void CColorStatic::SetItalicFont() {
    QFont italic = font();
    italic.setItalic(true);
    setFont(italic);
}

CColorStatic::Colors CColorStatic::GetColors() const {
    const std::optional<QColor> stock = m_lightGrey ? std::optional(kLightGrey) : std::nullopt;
    const QColor windowText = palette().color(QPalette::WindowText);
    switch (m_look) {
    case kInverted:
        return {Qt::white, QColor(Qt::black), stock};
    case kGrey:
        return {m_lightGrey ? QColor(Qt::black) : windowText, std::nullopt, stock};
    case kBad:
        return {Qt::black, kRed, m_brush ? m_brush : stock};
    case kGood:
        return {Qt::black, kGreen, m_brush ? m_brush : stock};
    default:
        break;
    }
    if (!m_brush)
        return {windowText, std::nullopt, stock};
    return {windowText, palette().color(QPalette::Button), m_brush};
}

void CColorStatic::paintEvent(QPaintEvent*) {
    const Colors colors = GetColors();
    QPainter painter(this);
    if (colors.behindRest)
        painter.fillRect(rect(), *colors.behindRest);
    const QRect textRect = fontMetrics().boundingRect(contentsRect(), int(alignment()), text());
    if (colors.behindText)
        painter.fillRect(textRect, *colors.behindText);
    if (m_look == kInverted) { // in a dark window black alone would not be seen
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawRect(textRect.adjusted(0, 0, -1, -1));
    }
    painter.setPen(colors.text);
    painter.drawText(contentsRect(), int(alignment()), text());
}

} // namespace krt550
