#pragma once

class QWidget;

namespace krt550 {

/// Shows how to work with the workbench, in a window of its own that belongs to `owner`.
void ShowWorkbenchHelp(QWidget* owner);

/// Shows what this program is.
void ShowAbout(QWidget* owner);

} // namespace krt550
