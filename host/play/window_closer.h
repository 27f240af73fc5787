#pragma once

namespace krt550 {

/// Takes one step towards closing everything: answers the message box in front in the most careful way, or closes
/// the window in front as its close button does. False when nothing is open. Called again and again until then, from
/// events of their own, so that what runs below a window can unwind.
bool CloseNextWindow();

} // namespace krt550
