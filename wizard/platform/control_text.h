#pragma once

#include <QString>

class QAbstractButton;
class QComboBox;
class QListWidget;
class QWidget;

namespace krt550 {

/// Sets a control's text: label, edit, multi-line text, button, check box, group box; in a check-box list ticks exactly
/// the entries that stand in it, one a line. Setting an edit's text notifies its window of a
/// change even when the text stays the same. Does nothing for null.
void SetControlText(QWidget* control, const QString& text);

/// Text of a control: of a drop-down the text of its selection, of a check-box list the ticked entries, one a line.
/// Empty for null.
QString GetControlText(const QWidget* control);

/// Shows or hides a control. One that has the focus gives it away (GiveFocusAway). Does nothing for null.
void ShowControl(QWidget* control, bool show);

/// Enables or disables a control. One that has the focus gives it away (GiveFocusAway). Does nothing for null.
void EnableControl(QWidget* control, bool enable);

/// Selects the first choice whose whole text equals `text`, letter case ignored. When none does, nothing is selected
/// and the result is false. Selecting from code never notifies.
bool SelectChoice(QComboBox* dropDown, const QString& text);

/// Ticks a check box, or latches a button. From code this never notifies. Does nothing for null.
void SetTick(QAbstractButton* button, bool ticked);

/// Appends an entry to a check-box list. From code this never notifies. Does nothing for null.
void AddCheckEntry(QListWidget* list, const QString& text, bool ticked);

} // namespace krt550
