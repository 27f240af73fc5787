#pragma once

class QWidget;

namespace krt550 {

/// Makes `window`, a top-level window without a parent, stay above the window in front, and keep the event loop of the
/// program out of it: closing it ends nothing but itself. The window in front may be the host's, which deletes it
/// when it likes; so it is neither parent nor owner. For a window that is not shown yet.
void StayAboveWindowInFront(QWidget& window);

} // namespace krt550
