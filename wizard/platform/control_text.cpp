#include "wizard/platform/control_text.h"

#include "wizard/platform/window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace krt550 {
namespace {

// An ampersand marks a shortcut for Qt, and is just a character in parameter names and captions.
QString Escaped(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString Unescaped(QString text) {
    return text.replace(QLatin1String("&&"), QLatin1String("&"));
}

void SetLabelText(QLabel& label, const QString& text) {
    label.setText(label.buddy() ? Escaped(text) : text);
    if (label.buddy())
        label.buddy()->setAccessibleName(text);
}

void SetEditText(QLineEdit& edit, const QString& text) {
    if (edit.text() != text) {
        edit.setText(text);
        edit.setCursorPosition(0);
    } else if (CWindow* owner = CWindow::OwnerOf(&edit)) {
        owner->Notify(&edit, ControlEvent::Changed);
    }
}

} // namespace

void SetControlText(QWidget* control, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        SetEditText(*edit, text);
    else if (auto* label = qobject_cast<QLabel*>(control))
        SetLabelText(*label, text);
    else if (auto* button = qobject_cast<QAbstractButton*>(control))
        button->setText(Escaped(text));
    else if (auto* group = qobject_cast<QGroupBox*>(control))
        group->setTitle(Escaped(text));
}

QString GetControlText(const QWidget* control) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(control))
        return edit->text();
    if (const auto* label = qobject_cast<const QLabel*>(control))
        return label->buddy() ? Unescaped(label->text()) : label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        return Unescaped(button->text());
    if (const auto* group = qobject_cast<const QGroupBox*>(control))
        return Unescaped(group->title());
    if (const auto* dropDown = qobject_cast<const QComboBox*>(control))
        return dropDown->currentText();
    return {};
}

void ShowControl(QWidget* control, bool show) {
    if (control)
        control->setVisible(show);
}

void EnableControl(QWidget* control, bool enable) {
    if (control)
        control->setEnabled(enable);
}

bool SelectChoice(QComboBox* dropDown, const QString& text) {
    if (!dropDown)
        return false;
    for (int i = 0; i < dropDown->count(); ++i) {
        if (dropDown->itemText(i).compare(text, Qt::CaseInsensitive) == 0) {
            dropDown->setCurrentIndex(i);
            return true;
        }
    }
    dropDown->setCurrentIndex(-1);
    return false;
}

} // namespace krt550
