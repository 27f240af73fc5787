#include "host/workbench/stop_strip.h"

#include "host/workbench/stop.h"
#include "host/workbench/stop_button.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace krt550 {

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

/// It stays as long as it is needed.
void CStopStrip::closeEvent(QCloseEvent* event) {
    event->ignore();
}

/// Above the window, or at the upper edge of the screen where there is no room. Frames are not known before windows
/// are shown, and those of all windows are alike.
void CStopStrip::Place(const QWindow& modal) {
    adjustSize();
    const QRect screen = modal.screen()->availableGeometry();
    const QMargins frame = m_owner.windowHandle() ? m_owner.windowHandle()->frameMargins() : QMargins();
    const int height = sizeHint().height() + frame.top() + frame.bottom();
    const int left = modal.geometry().right() - sizeHint().width() - frame.right();
    const int top = modal.geometry().top() - frame.top() - height;
    move(std::clamp(left, screen.left(), std::max(screen.left(), screen.right() - sizeHint().width())),
         std::max(top, screen.top()));
}

} // namespace krt550
