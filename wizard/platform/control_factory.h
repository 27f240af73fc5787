#pragma once

#include "wizard/platform/dialog_layout.h"

class QLabel;
class QWidget;

namespace krt550 {

/// Makes the Qt widget of a layout's control.
QWidget* MakeControl(const ControlLayout& control, QWidget* parent);

/// Gives a control what every control has: its id as object name, its text, its register.
void DressControl(QWidget& widget, const ControlLayout& control);

/// Makes `label` the name of `value` (which may be null): buddy and accessible name.
void NameControl(QLabel& label, QWidget* value);

} // namespace krt550
