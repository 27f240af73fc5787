#pragma once

#include <functional>

class QComboBox;
class QObject;

namespace krt550 {

/// Calls `act` from the event loop as soon as no mouse button is down any more: what the click does is done by then.
/// Never calls it when `context` is gone.
void AfterMouseRelease(QObject& context, std::function<void()> act);

/// Calls `tell` whenever a person chooses another entry than the one that was selected. Choosing the same again, and
/// what the program selects, is not told.
void OnOtherChoice(QComboBox& dropDown, std::function<void()> tell);

} // namespace krt550
