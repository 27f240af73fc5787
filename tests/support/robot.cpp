#include "tests/support/robot.h"

#include "host/hands/front_window.h"
#include "host/hands/input.h"
#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/control_text.h"
#include "wizard/run_wizard.h"

#include <QTest>

namespace krt550 {
namespace {

/// What the hands could not do is the test's failure.
void Expect(const QString& error) {
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
}

} // namespace

QWidget* Robot::Front() {
    return QApplication::activeModalWidget();
}

QWidget* Robot::Find(int id) {
    return FindControl(Front(), id);
}

QWidget* Robot::Control(int id) {
    QWidget* control = Find(id);
    if (!control)
        ADD_FAILURE() << "no visible control " << id << " in \"" << Title().toStdString() << '"';
    return control;
}

void Robot::Press(int id) {
    QWidget* control = Control(id);
    if (!control)
        return;
    EXPECT_TRUE(control->isEnabled()) << "control " << id << " is disabled";
    Expect(Click(control));
}

void Robot::TypeOnly(int id, const QString& text) {
    if (QWidget* edit = Control(id))
        Expect(TypeInto(edit, text));
}

void Robot::Type(int id, const QString& text) {
    if (QWidget* edit = Control(id))
        Expect(TypeAndLeave(edit, text));
}

void Robot::Choose(int id, const QString& text) {
    if (auto* dropDown = qobject_cast<QComboBox*>(Control(id)))
        Expect(PickEntry(dropDown, text));
}

void Robot::Enter(int id, const QString& text) {
    qobject_cast<QComboBox*>(Control(id)) ? Choose(id, text) : Type(id, text);
}

void Robot::ShowTab(int index) {
    auto* tabs = Front() ? Front()->findChild<QTabBar*>() : nullptr;
    if (tabs && tabs->isVisible())
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

void Robot::PickFromMenu(int id, const QString& text) {
    Expect(krt550::PickFromMenu(Control(id), text));
}

QString Robot::Text(int id) {
    return GetControlText(Control(id));
}

bool Robot::IsEnabled(int id) {
    const QWidget* control = Control(id);
    return control && control->isEnabled();
}

QString Robot::Title() {
    return Front() ? Front()->windowTitle() : QString();
}

int Robot::Layout() {
    return Front() ? Front()->property("layout").toInt() : 0;
}

void Robot::CloseWindow() {
    if (Front())
        Front()->close();
}

void Robot::Drain() {
    QCoreApplication::processEvents();
}

bool Robot::WaitUntil(const std::function<bool()>& condition) {
    CClock& clock = CClock::Current();
    const qint64 deadline = clock.Now() + 5000;
    while (!condition()) {
        const qint64 left = deadline - clock.Now();
        if (left <= 0)
            return false;
        clock.WaitForEvents(left);
    }
    return true;
}

void Robot::LetPass(qint64 milliseconds) {
    const qint64 end = CClock::Current().Now() + milliseconds;
    EXPECT_TRUE(WaitUntil([end] { return CClock::Current().Now() >= end; }));
    Drain();
}

void Robot::WhenInFront(int layout, const std::function<void()>& act) {
    // In the time of the wizard: while the wall's went by, an idle wizard would already be further.
    CClock::Current().SetAlarm(1, [=] {
        if (Layout() == layout) {
            Front()->activateWindow();
            act();
        } else if (Front()) {
            WhenInFront(layout, act);
        }
    });
}

int RunWizardWith(CHostDrive& drive, const std::function<void()>& script) {
    QTimer::singleShot(0, [&script] {
        // Focus changes are only told to the widgets of an active window.
        BringToFront(Robot::Front());
        script();
        for (int windows = 0; Robot::Front() && windows < 10; ++windows)
            Robot::CloseWindow();
    });
    return RunWizard(&drive);
}

} // namespace krt550
