#pragma once

#include <QWidget>

#include <functional>
#include <memory>

namespace krt550 {

class CWindow;
struct ControlLayout;

/// A window of a layout, as tests work it. The window itself is known to one source file only, so that a change of
/// its class does not have all tests compiled again.
class CTestWindow {
public:
    /// Makes a control that the layout alone cannot; null leaves it to the layout.
    using Maker = std::function<QWidget*(const ControlLayout&, QWidget* parent)>;

    /// The layout is taken from the current resources by Create.
    explicit CTestWindow(int layout = 1, Maker maker = {});
    ~CTestWindow();

    bool Create();
    operator CWindow&() const;
    QWidget& Widget() const { return *m_widget; }

    QWidget* GetDlgItem(int id) const;
    template <class Control> Control* GetControl(int id) const { return qobject_cast<Control*>(GetDlgItem(id)); }
    /// Tells the window of the other choice of a drop-down, as after one by the user.
    void NotifySelected(const QWidget* control);
    /// Tells the window that a control lost the focus.
    void NotifyFocusLost(const QWidget* control);

    int SetTimer(int id, int milliseconds);
    void KillAllTimers();
    std::function<void()> onTimer;

private:
    class Window;
    std::unique_ptr<Window> m_window;
    QWidget* m_widget;
};

/// Starts a timer of the window that a control belongs to.
void SetTimerAround(const QWidget* control, int id, int milliseconds);

} // namespace krt550
