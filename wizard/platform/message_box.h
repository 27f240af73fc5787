#pragma once

#include <QString>

#include <functional>

namespace krt550 {

enum class MessageIcon { None, Information, Exclamation, Stop };
enum class MessageButtons { Ok, OkCancel };

/// Shows a modal message box over the window in front. The caption is the wizard's name when none is given.
/// True when it was answered with OK; closing it, Escape and the end of the application are no OK, and in a question
/// Cancel is what Enter presses. While boxes are held (BoxHold) none is shown, and the answer is no OK.
bool ShowMessageBox(const QString& text, MessageIcon icon, MessageButtons buttons = MessageButtons::Ok,
                    const QString& caption = {});

/// Keeps boxes back for the scope's lifetime: while a motor turns nobody may have to answer one first. A text is handed
/// to `tell` at once; without `tell` it is kept, each text once, and shown after the last scope has ended: by
/// ShowHeldBoxes, or else as soon as the event loop is back.
class BoxHold {
public:
    using Tell = std::function<void(const QString& text)>;
    explicit BoxHold(Tell tell = {});
    ~BoxHold();
    BoxHold(const BoxHold&) = delete;
    BoxHold& operator=(const BoxHold&) = delete;
};

/// Within the scope each text is shown once: a box without a question that would repeat an earlier one is answered with
/// OK unseen. A scope inside another one adds nothing.
class BoxOnce {
public:
    BoxOnce();
    ~BoxOnce();
    BoxOnce(const BoxOnce&) = delete;
    BoxOnce& operator=(const BoxOnce&) = delete;
};

/// True inside a BoxHold.
bool AreBoxesHeld();
/// Shows what was kept back, in its order; does nothing inside a scope.
void ShowHeldBoxes();
/// Drops what was kept back.
void ForgetHeldBoxes();

/// Number of boxes shown so far in this process.
int MessageBoxCount();

} // namespace krt550
