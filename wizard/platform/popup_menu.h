#pragma once

class QPoint;
class QWidget;

namespace krt550 {

/// Shows a popup menu of the current resources at a screen position and returns the chosen command's id, 0 for none.
int TrackPopupMenu(int menuNumber, const QPoint& position, QWidget* owner);

} // namespace krt550
