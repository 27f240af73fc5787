#pragma once

#include "host/play/action.h"

#include <functional>

namespace krt550 {

class CPlayStage;
struct Hands;

/// What actions need beside the windows. All is borrowed.
struct ActingContext {
    CPlayStage& stage;
    const Hands& hands;
    QString shotDirectory;
    std::function<void(const QString&)> print;
};

/// Does what a line says (Wait and Expect apart, which only look). May block as long as what it started: a nested
/// modal loop, a procedure. Returns what went wrong, or an empty text.
QString Act(const PlayAction& action, const ActingContext& context);

/// True when an action is about the window in front.
bool NeedsWindow(Verb verb);

/// True when an action may be done while a message box is in front.
bool LooksPastBoxes(Verb verb);

} // namespace krt550
