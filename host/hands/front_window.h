#pragma once

#include <QString>
#include <QWidget>

class QMessageBox;

namespace krt550 {

/// The window that a person would act on: the modal one on top, or else the visible one on top; null without any.
QWidget* FrontWindow();

/// The message box in front, or null.
QMessageBox* BoxInFront();

/// The visible window with a caption that matches `title` (see MatchesText), or null.
QWidget* FindWindow(const QString& title);

/// Captions of all visible windows, for messages.
QString VisibleTitles();

/// The visible control with this id, or null. Pages that are hidden hold controls with the same ids: these do not
/// count. The control nearest to the window wins.
QWidget* FindControl(QWidget* window, int id);

/// The visible control that shows the value of a register, or null.
QWidget* FindRowControl(QWidget* window, int reg);

/// Layout numbers of the visible pages and dialogs within the window.
QList<int> VisibleLayouts(QWidget* window);

/// Text that a control shows.
QString ShownText(const QWidget* control);

/// Makes the window the active one, so that the keyboard goes there.
void BringToFront(QWidget* window);

/// Equal texts, blanks and line ends simplified; '*' in the pattern stands for anything.
bool MatchesText(const QString& pattern, const QString& text);

} // namespace krt550
