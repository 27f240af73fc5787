#pragma once

#include <QString>

class QComboBox;
class QWidget;

namespace krt550 {

/// Sets a control's text: label, edit, button, check box, group box. Setting an edit's text notifies its window of a
/// change even when the text stays the same. Does nothing for null.
void SetControlText(QWidget* control, const QString& text);

/// Text of a control: of a drop-down the text of its selection. Empty for null.
QString GetControlText(const QWidget* control);

/// Shows or hides a control. Does nothing for null.
void ShowControl(QWidget* control, bool show);

/// Enables or disables a control. Does nothing for null.
void EnableControl(QWidget* control, bool enable);

/// Selects the first choice whose whole text equals `text`, letter case ignored. When none does, nothing is selected
/// and the result is false. Selecting from code never notifies.
bool SelectChoice(QComboBox* dropDown, const QString& text);

} // namespace krt550
