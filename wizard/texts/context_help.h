#pragma once

#include <QString>

class QWidget;

namespace krt550 {

/// Shows a topic ("1.htm") of the wizard's help file over the owner's window. Nothing happens when there is no help; a
/// file that is damaged or too large makes the help window say so.
void ShowHelp(QWidget* owner, const QString& topic);

/// The one command that the help viewer knows.
inline constexpr unsigned kDisplayTopic = 0;

/// Runs a help command on a target "DIRECTORY\FILE.chm::/TOPIC". The result is 0 when no window is shown: the file
/// or the topic is missing, or the command is unknown. What was missing or refused once is not looked for again.
quintptr CallHtmlHelp(QWidget* owner, const QString& target, unsigned command, quintptr data);

} // namespace krt550
