#include "wizard/platform/control_factory.h"

#include "wizard/platform/control_text.h"
#include "wizard/platform/group_box.h"
#include "wizard/platform/picture.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/slider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>

namespace krt550 {
namespace {

QWidget* MakeLabel(QWidget* parent, bool wrapped) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(wrapped);
    label->setAlignment(Qt::AlignLeft | (wrapped ? Qt::AlignTop : Qt::AlignVCenter));
    return label;
}

QWidget* MakeButton(QWidget* parent, bool isDefault) {
    auto* button = new CPushButton(parent);
    button->setDefault(isDefault);
    return button;
}

QWidget* MakeMultilineText(QWidget* parent) {
    auto* text = new QPlainTextEdit(parent);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    // The caret is what a keyboard scrolls by.
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return text;
}

QWidget* MakeProgressBar(QWidget* parent) {
    auto* bar = new QProgressBar(parent);
    bar->setRange(0, 100);
    return bar;
}

} // namespace

QWidget* MakeControl(const ControlLayout& control, QWidget* parent) {
    switch (control.kind) {
    case ControlKind::Label:
        return MakeLabel(parent, false);
    case ControlKind::WrappedText:
        return MakeLabel(parent, true);
    case ControlKind::GroupBox:
        return new CGroupBox(parent);
    case ControlKind::Edit:
        return new QLineEdit(parent);
    case ControlKind::DropDown:
        return new QComboBox(parent);
    case ControlKind::CheckBox:
        return new QCheckBox(parent);
    case ControlKind::CheckList:
        return new QListWidget(parent);
    case ControlKind::MultilineText:
        return MakeMultilineText(parent);
    case ControlKind::PushButton:
        return MakeButton(parent, false);
    case ControlKind::DefaultButton:
        return MakeButton(parent, true);
    case ControlKind::Picture:
        return new CPicture(control.picture, parent);
    case ControlKind::ProgressBar:
        return MakeProgressBar(parent);
    case ControlKind::Slider:
        return new CSlider(parent);
    case ControlKind::Icon:
    case ControlKind::Placeholder:
    case ControlKind::Custom:
        break;
    }
    return new QLabel(parent);
}

void DressControl(QWidget& widget, const ControlLayout& control) {
    widget.setObjectName(QString::number(control.id));
    if (!control.text.isEmpty())
        SetControlText(&widget, control.text);
    if (auto* label = qobject_cast<QLabel*>(&widget); label && control.alignment)
        label->setAlignment(control.alignment | Qt::AlignVCenter);
    if (control.reg != 0)
        widget.setProperty("register", int(control.reg));
    if (!control.name.isEmpty())
        widget.setAccessibleName(control.name);
    if (auto* button = qobject_cast<CPushButton*>(&widget); button && control.mnemonic)
        button->UseMnemonic();
    if (control.bold) {
        QFont font = widget.font();
        font.setBold(true);
        widget.setFont(font);
    }
}

void NameControl(QLabel& label, QWidget* value) {
    const QString text = GetControlText(&label);
    label.setBuddy(value);
    SetControlText(&label, text);
}

} // namespace krt550
