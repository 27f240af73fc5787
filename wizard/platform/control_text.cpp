#include "wizard/platform/control_text.h"

#include "wizard/platform/focus.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalBlocker>

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

QStringList TickedEntries(const QListWidget& list) {
    QStringList ticked;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->checkState() == Qt::Checked)
            ticked.append(list.item(row)->text());
    return ticked;
}

void TickEntries(QListWidget& list, const QStringList& texts) {
    const QSignalBlocker quiet(list);
    for (int row = 0; row < list.count(); ++row)
        list.item(row)->setCheckState(texts.contains(list.item(row)->text()) ? Qt::Checked : Qt::Unchecked);
}

} // namespace

void SetControlText(QWidget* control, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        SetEditText(*edit, text);
    else if (auto* label = qobject_cast<QLabel*>(control))
        SetLabelText(*label, text);
    else if (auto* lines = qobject_cast<QPlainTextEdit*>(control))
        lines->setPlainText(text);
    else if (auto* list = qobject_cast<QListWidget*>(control))
        TickEntries(*list, text.split(QLatin1Char('\n')));
    else if (auto* push = qobject_cast<CPushButton*>(control))
        push->SetCaption(Escaped(text));
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
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(control))
        return lines->toPlainText();
    if (const auto* list = qobject_cast<const QListWidget*>(control))
        return TickedEntries(*list).join(QLatin1Char('\n'));
    return {};
}

void ShowControl(QWidget* control, bool show) {
    if (!control)
        return;
    if (!show)
        GiveFocusAway(*control);
    control->setVisible(show);
}

void EnableControl(QWidget* control, bool enable) {
    if (!control)
        return;
    if (!enable)
        GiveFocusAway(*control);
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

void SetTick(QAbstractButton* button, bool ticked) {
    const QSignalBlocker quiet(button);
    if (button)
        button->setChecked(ticked);
}

void AddCheckEntry(QListWidget* list, const QString& text, bool ticked) {
    if (!list)
        return;
    auto* entry = new QListWidgetItem(text);
    entry->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    list->addItem(entry); // complete, so that nothing about it changes any more
    if (list->currentRow() < 0)
        list->setCurrentRow(0);
}

} // namespace krt550
