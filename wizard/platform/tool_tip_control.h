#pragma once

#include <QString>

class QWidget;

namespace krt550 {

/// The tool tips of one window.
class CToolTipCtrl {
public:
    /// Gives a control a tool tip, wrapped over several lines when long. Refuses a null control and an empty text;
    /// an empty text takes a former tip away.
    bool AddTool(QWidget* control, const QString& text);
};

} // namespace krt550
