#include "tests/support/robot.h"

#include "host/hands/front_window.h"
#include "host/hands/input.h"
#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/control_text.h"
#include "wizard/run_wizard.h"

#include <QApplication>
#include <QComboBox>
#include <QTimer>

#include <gtest/gtest.h>

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
