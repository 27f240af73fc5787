#include "host/workbench/stop_strip.h"

#include "host/workbench/stop.h"
#include "host/workbench/stop_button.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kTextCharacters = 46;
constexpr int kTextLines = 2;

} // namespace

CStopStrip::CStopStrip(CStop& stop, const QWidget& owner)
    : QWidget(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      m_owner(owner), m_text(new QLabel(this)) {
    setWindowTitle(QStringLiteral("Stop the motor"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* button = new CStopButton(this);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("Stops the motor, whatever else is going on"));
    connect(button, &QPushButton::pressed, this, [&stop] { stop.Press(); });
    m_text->setWordWrap(true);
    m_text->setFixedSize(kTextCharacters * fontMetrics().averageCharWidth(), kTextLines * fontMetrics().lineSpacing());
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_text->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(button);
    layout->addWidget(m_text);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowText({});
}

void CStopStrip::Follow(bool isWanted) {
    QWindow* modal = QGuiApplication::modalWindow();
    if (!isWanted || !modal)
        return hide();
    winId(); // makes the window's handle
    if (windowHandle()->transientParent() != modal)
        windowHandle()->setTransientParent(modal);
    if (!isVisible()) {
        Place(*modal);
        show();
    }
    raise();
}

void CStopStrip::ShowText(const QString& text) {
    m_text->setText(text.isEmpty() ? QStringLiteral("Reaches the drive past the window in front") : text);
}

/// It stays as long as it is needed.
void CStopStrip::closeEvent(QCloseEvent* event) {
    event->ignore();
}

/// Above the window, else below it, else at the upper edge of the screen. Frames are not known before windows are
/// shown, and those of all windows are alike.
void CStopStrip::Place(const QWindow& modal) {
    adjustSize();
    const QRect screen = modal.screen()->availableGeometry();
    const QRect other = modal.geometry();
    const QMargins frame = m_owner.windowHandle() ? m_owner.windowHandle()->frameMargins() : QMargins();
    const int whole = sizeHint().height() + frame.top() + frame.bottom();
    const int above = other.top() - frame.top() - whole;
    const int below = other.bottom() + frame.bottom();
    const int first = screen.top() + frame.top();
    const int top = above >= first ? above : below + whole <= screen.bottom() ? below : first;
    const int left = other.right() - sizeHint().width() - frame.right();
    move(std::clamp(left, screen.left(), std::max(screen.left(), screen.right() - sizeHint().width())), top);
}

} // namespace krt550
