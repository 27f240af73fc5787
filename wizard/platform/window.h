#pragma once

#include <QHash>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>

class QPushButton;

namespace krt550 {

class CClockTimer;
struct ControlLayout;
struct DialogLayout;

/// What a control can tell its window.
enum class ControlEvent {
    Clicked,   ///< button pressed; tick of a check box or latch of a button changed by the user
    Changed,   ///< text of an edit, typed or set from code
    Selected,  ///< other choice of a drop-down, or tick in a check-box list, by the user
    FocusLost, ///< the focus went to another control
    Released   ///< slider let go
};

/// A window built from a dialog layout: controls by id, handlers by id and event, timers by id and handle.
class CWindow : public QWidget {
    Q_OBJECT

public:
    /// The layout is taken from the current resources when the window is created.
    explicit CWindow(int layoutNumber, QWidget* parent = nullptr);
    ~CWindow() override;

    /// Makes the controls. Does nothing the second time; false when the resources have no such layout.
    bool Create();
    bool IsCreated() const { return m_created; }
    int GetLayoutNumber() const { return m_layoutNumber; }

    /// The control with this id, or null.
    QWidget* GetDlgItem(int id) const { return m_controls.value(id, nullptr); }
    /// The control with this id when it is of this class, or null.
    template <class Control> Control* GetControl(int id) const { return qobject_cast<Control*>(GetDlgItem(id)); }
    /// All controls, in the layout's order, which is the tab order.
    const QWidgetList& GetControls() const { return m_order; }
    /// Id of one of this window's controls, 0 for anything else.
    int GetDlgCtrlID(const QWidget* control) const;

    using Handler = std::function<void()>;
    /// Sets what happens on an event of a control, in place of what was set before.
    void Handle(int id, ControlEvent event, Handler handler);
    /// Runs the handler of a control's event, if there is one.
    void Notify(const QWidget* control, ControlEvent event);

    /// Starts a timer that calls OnTimer with `id` every `milliseconds` (> 0) of the current clock, counted from the
    /// end of the call before. Returns its handle, never 0. While timers are held (TimerHold) the call waits.
    int SetTimer(int id, int milliseconds);
    /// False when no timer of this window has this handle.
    bool KillTimer(int handle);
    /// Has a timer's period begin anew; nothing without such a timer.
    void RestartTimer(int handle);
    /// Calls OnTimer for a timer that has waited, and has its period begin anew; nothing when it was killed meanwhile.
    void ServeTimer(int handle);
    void KillAllTimers();

    /// Id of the button that leaves this page or dialog; 0 for a window that has none, as a tab.
    virtual int GetWayOut() const { return 0; }
    /// Makes the layout's default button, if it has one, the default button of the dialog that this window is shown in.
    void ClaimDefaultButton();
    /// The layout's default button; null when it has none.
    QPushButton* GetDefaultButton() const;

    /// Makes the Tab key visit these widgets in this order; those that take no focus are passed over.
    static void ThreadTabOrder(const QWidgetList& widgets);

    /// The window that a control belongs to, or null.
    static CWindow* OwnerOf(const QWidget* control);

protected:
    /// Makes a control that the layout alone cannot; null leaves it to the layout.
    virtual QWidget* CreateControl(const ControlLayout& control);
    virtual void OnTimer(int id);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Timer {
        int id;
        int period; ///< [ms]
        std::unique_ptr<CClockTimer> clock;
    };

    void Place(const DialogLayout& layout);
    void Connect(QWidget* control);
    void FocusLeft(QWidget& control);

    int m_layoutNumber;
    int m_defaultButton = 0;
    bool m_created = false;
    QHash<int, QWidget*> m_controls;
    QWidgetList m_order;
    std::map<std::pair<int, ControlEvent>, Handler> m_handlers;
    std::map<int, Timer> m_timers; ///< by handle
    int m_lastTimer = 0;
};

} // namespace krt550
