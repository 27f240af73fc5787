#include "host/parameters/choice_box.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace krt550 {

CChoiceBox::CChoiceBox(QWidget* parent) : QComboBox(parent) {
    connect(this, &QComboBox::activated, this, [this] { m_isChosen = true; });
    view()->installEventFilter(this);
}

/// Esc closes the list, and is no shortcut of the window behind it.
bool CChoiceBox::eventFilter(QObject* watched, QEvent* event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (isOverride && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape)
        event->accept();
    return QComboBox::eventFilter(watched, event);
}

/// Once the view has put it in its place.
void CChoiceBox::showEvent(QShowEvent* event) {
    QComboBox::showEvent(event);
    QMetaObject::invokeMethod(this, &CChoiceBox::Open, Qt::QueuedConnection);
}

void CChoiceBox::Open() {
    m_isOpen = true;
    showPopup();
}

/// The choice is told after the list is gone.
void CChoiceBox::hidePopup() {
    QComboBox::hidePopup();
    if (std::exchange(m_isOpen, false))
        QMetaObject::invokeMethod(this, &CChoiceBox::Finish, Qt::QueuedConnection);
}

void CChoiceBox::Finish() {
    if (const auto& told = m_isChosen ? onChosen : onLeft)
        told();
}

void CChoiceBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        showPopup();
}

void CChoiceBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace krt550
