#include "host/play/window_closer.h"

#include "host/hands/front_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace krt550 {
namespace {

/// Cancel before No before anything: a box must not start a motor because somebody wanted to leave.
QAbstractButton* MostCarefulButton(const QMessageBox& box) {
    if (box.escapeButton())
        return box.escapeButton();
    const QList<QAbstractButton*> buttons = box.buttons();
    for (const QMessageBox::ButtonRole role : {QMessageBox::RejectRole, QMessageBox::NoRole})
        for (QAbstractButton* button : buttons)
            if (box.buttonRole(button) == role)
                return button;
    return buttons.isEmpty() ? nullptr : buttons.last();
}

} // namespace

bool CloseNextWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return true;
    }
    QWidget* front = FrontWindow();
    if (!front)
        return false;
    const auto* box = qobject_cast<const QMessageBox*>(front);
    QAbstractButton* button = box ? MostCarefulButton(*box) : nullptr;
    if (button)
        button->click();
    else
        front->close();
    return true;
}

} // namespace krt550
