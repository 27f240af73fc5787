#pragma once

class QString;
class QWidget;

namespace krt550 {

/// Gives a control a tool tip, wrapped over several lines when long; a screen reader has it as the description of the
/// control and of what the control is the label of. An empty text takes a former tip away. Does nothing for null.
void SetToolTip(QWidget* control, const QString& text);

} // namespace krt550
