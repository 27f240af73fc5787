#include "wizard/platform/window_in_front.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace krt550 {
namespace {

/// The host's windows need not be widgets.
QWindow* WindowInFront() {
    const QWidget* modal = QApplication::activeModalWidget();
    QWindow* window = modal ? modal->windowHandle() : QGuiApplication::focusWindow();
    // A menu or a tool tip is gone before long.
    while (window && (window->type() == Qt::Popup || window->type() == Qt::ToolTip))
        window = window->transientParent();
    return window;
}

} // namespace

void StayAboveWindowInFront(QWidget& window) {
    window.setAttribute(Qt::WA_QuitOnClose, false);
    QWindow* front = WindowInFront();
    window.winId(); // makes the window's handle
    window.windowHandle()->setTransientParent(front);
}

} // namespace krt550
