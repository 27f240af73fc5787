#pragma once

#include <QString>

class QComboBox;
class QTabBar;
class QWidget;

namespace krt550 {

/// Real input events, as mouse and keyboard send them. Any of them may open a nested modal loop, or close and delete
/// the control: none touches it again without looking. Each returns what went wrong, or an empty text.

/// Clicks a control where a person would: check boxes on their box, everything else in the middle.
QString Click(QWidget* control);

/// Replaces the text of a field by typing.
QString TypeInto(QWidget* field, const QString& text);

/// The same, then leaves the field with Tab.
QString TypeAndLeave(QWidget* field, const QString& text);

/// Opens the list and picks the entry.
QString PickEntry(QComboBox* list, const QString& entry);

/// Clicks with the right button and picks that entry of the menu.
QString PickFromMenu(QWidget* control, const QString& entry);

/// Clicks the tab with that text.
QString ClickTab(QTabBar* tabs, const QString& text);

/// Presses one key, named as in "Ctrl+A", in the control.
QString PressKey(QWidget* control, const QString& key);

} // namespace krt550
