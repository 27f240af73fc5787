#pragma once

#include <QPointer>
#include <QWidget>

namespace krt550 {

/// The first widget inside `scope`, in tab order, that can be seen there, is enabled and takes the focus by the Tab
/// key; null when there is none.
QWidget* FirstFocusable(QWidget& scope);

/// Gives that widget the focus as the Tab key would; false when there is none.
bool FocusFirst(QWidget& scope);

/// For a control that is about to be disabled or hidden: when it has the keyboard, that goes to the button which leaves
/// the control's page or dialog (CWindow::GetWayOut), and not to whatever comes next, which may be an edit.
void GiveFocusAway(const QWidget& control);

/// For something that a control starts and that takes its time: the keyboard is on the way out of the control's page
/// (CWindow::GetWayOut) for the scope's lifetime, whatever has started it, and goes back to the control when the scope
/// ends and the control can take it. A person who has gone on to another control is left there.
class CFocusReturn {
public:
    /// Null stands for no control.
    explicit CFocusReturn(QWidget* control);
    ~CFocusReturn();
    CFocusReturn(const CFocusReturn&) = delete;
    CFocusReturn& operator=(const CFocusReturn&) = delete;

private:
    QPointer<QWidget> m_control;
    QPointer<QWidget> m_wayOut;
};

} // namespace krt550
