#pragma once

#include <QString>

namespace krt550 {

enum class MessageIcon { None, Information, Exclamation, Stop };
enum class MessageButtons { Ok, OkCancel };

/// Shows a modal message box over the window in front. The caption is the wizard's name when none is given.
/// True when it was answered with OK; closing it, Escape and the end of the application are no OK.
bool ShowMessageBox(const QString& text, MessageIcon icon, MessageButtons buttons = MessageButtons::Ok,
                    const QString& caption = {});

/// Number of boxes shown so far in this process.
int MessageBoxCount();

} // namespace krt550
