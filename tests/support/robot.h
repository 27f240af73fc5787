#pragma once

class QWidget;

namespace krt550 {

class CHostDrive;

/// Acts on the window in front by control id, with the hands that play the plays (host/hands). What cannot be done
/// fails the test.
class Robot {
public:
    /// The modal window in front; null when there is none.
    static QWidget* Front();
    /// The visible control with this id in the window in front; fails the test when there is none.
    static QWidget* Control(int id);
    /// The visible control with this id, or null.
    static QWidget* Find(int id);

    static void Press(int id);
    /// Clicks into an edit, replaces its text and leaves it with the Tab key.
    static void Type(int id, const QString& text);
    /// The same without leaving the edit.
    static void TypeOnly(int id, const QString& text);
    static void Choose(int id, const QString& text);
    /// Chooses in a drop-down, types into anything else.
    static void Enter(int id, const QString& text);
    /// Brings a tab to the front where there are tabs.
    static void ShowTab(int index);
    /// Right click on a control, then the menu's entry with this text.
    static void PickFromMenu(int id, const QString& text);
    static QString Text(int id);
    static bool IsEnabled(int id);
    static QString Title();
    /// Number of the page's layout in front.
    static int Layout();
    /// Closes the window in front as its close button does.
    static void CloseWindow();
    /// Dispatches everything that waits.
    static void Drain();
    /// Dispatches events until the condition holds; false after five seconds of the current clock.
    static bool WaitUntil(const std::function<bool()>& condition);
    /// Lets so much time of the current clock pass, and what falls due in it happen.
    static void LetPass(qint64 milliseconds);
    /// Acts as soon as the window with this layout is in front: boxes may come before it. Gives up when nothing is in
    /// front any more.
    static void WhenInFront(int layout, const std::function<void()>& act);
};

/// Calls RunWizard for a drive; `script` runs inside its modal loop, and whatever is still open afterwards is closed.
/// Returns RunWizard's result.
int RunWizardWith(CHostDrive& drive, const std::function<void()>& script);

} // namespace krt550
