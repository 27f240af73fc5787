#include "host/workbench/stop_strip.h"

#include "host/workbench/stop.h"
#include "host/workbench/stop_button.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace krt550 {

CStopStrip::CStopStrip(CStop& stop)
    : QWidget(nullptr, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      m_text(new QLabel(this)) {
    setWindowTitle(QStringLiteral("Stop the motor"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* button = new CStopButton(this);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("Stops the motor, whatever else is going on"));
    connect(button, &QPushButton::pressed, this, [&stop] { stop.Press(); });
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(button);
    layout->addWidget(m_text);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_text->hide();
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
    m_text->setText(text);
    m_text->setVisible(!text.isEmpty());
}

/// Above the window, or at the upper edge of the screen where there is no room.
void CStopStrip::Place(const QWindow& modal) {
    adjustSize();
    const QRect screen = modal.screen()->availableGeometry();
    const QRect other = modal.frameGeometry();
    const int frame = std::max(0, other.height() - modal.height()); // a title bar like that of the other window
    const int left = other.right() - width() - frame;
    const int top = other.top() - height() - 2 * frame;
    move(std::clamp(left, screen.left(), std::max(screen.left(), screen.right() - width() - frame)),
         std::max(top, screen.top()));
}

} // namespace krt550
