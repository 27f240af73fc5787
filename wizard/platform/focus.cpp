#include "wizard/platform/focus.h"

#include "wizard/platform/window.h"

namespace krt550 {
namespace {

/// The way out of the page or dialog that a control stands on, tabs passed over; null when it has none to press now.
QWidget* WayOutOf(const QWidget& control) {
    for (QWidget* above = control.parentWidget(); above; above = above->parentWidget()) {
        const auto* window = qobject_cast<CWindow*>(above);
        QWidget* button = window ? window->GetDlgItem(window->GetWayOut()) : nullptr;
        if (button && button != &control && button->isVisible() && button->isEnabled())
            return button;
    }
    return nullptr;
}

} // namespace

QWidget* FirstFocusable(QWidget& scope) {
    for (QWidget* next = scope.nextInFocusChain(); next != &scope; next = next->nextInFocusChain()) {
        const bool takesFocus = (next->focusPolicy() & Qt::TabFocus) && !next->focusProxy();
        if (takesFocus && scope.isAncestorOf(next) && next->isVisibleTo(&scope) && next->isEnabled())
            return next;
    }
    return nullptr;
}

bool FocusFirst(QWidget& scope) {
    QWidget* first = FirstFocusable(scope);
    if (first)
        first->setFocus(Qt::TabFocusReason);
    return first != nullptr;
}

void GiveFocusAway(const QWidget& control) {
    const QWidget* focus = control.window()->focusWidget();
    if (!focus || (focus != &control && !control.isAncestorOf(focus)))
        return;
    if (QWidget* button = WayOutOf(control))
        button->setFocus(Qt::OtherFocusReason);
}

CFocusReturn::CFocusReturn(QWidget* control) : m_control(control), m_wayOut(control ? WayOutOf(*control) : nullptr) {
    if (m_wayOut)
        m_wayOut->setFocus(Qt::OtherFocusReason);
}

CFocusReturn::~CFocusReturn() {
    if (!m_control || !m_control->isVisible() || !m_control->isEnabled())
        return;
    const QWidget* focus = m_control->window()->focusWidget();
    if (!focus || focus == m_wayOut)
        m_control->setFocus(Qt::OtherFocusReason);
}

} // namespace krt550
