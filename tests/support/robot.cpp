#include "tests/support/robot.h"

#include "wizard/platform/control_text.h"
#include "wizard/run_wizard.h"

#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace krt550 {

QWidget* Robot::Front() {
    return QApplication::activeModalWidget();
}

QWidget* Robot::Find(int id) {
    if (!Front())
        return nullptr;
    const QList<QWidget*> controls = Front()->findChildren<QWidget*>(QString::number(id));
    for (QWidget* control : controls)
        if (control->isVisible())
            return control;
    return nullptr;
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
    // The left edge: a check box is as wide as its rectangle, but reacts to its text.
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
}

void Robot::TypeOnly(int id, const QString& text) {
    QWidget* edit = Control(id);
    if (!edit)
        return;
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

void Robot::Type(int id, const QString& text) {
    TypeOnly(id, text);
    if (QWidget* edit = Find(id))
        QTest::keyClick(edit, Qt::Key_Tab);
}

void Robot::Choose(int id, const QString& text) {
    auto* dropDown = qobject_cast<QComboBox*>(Control(id));
    if (!dropDown)
        return;
    const int wanted = dropDown->findText(text);
    ASSERT_GE(wanted, 0) << "no choice \"" << text.toStdString() << '"';
    dropDown->setFocus(Qt::MouseFocusReason);
    while (dropDown->currentIndex() != wanted)
        QTest::keyClick(dropDown, dropDown->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
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
    const QDeadlineTimer deadline(5000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
    }
    return true;
}

int RunWizardWith(CHostDrive& drive, const std::function<void()>& script) {
    QTimer::singleShot(0, [&script] {
        // Focus changes are only told to the widgets of an active window.
        EXPECT_TRUE(QTest::qWaitForWindowActive(Robot::Front()));
        script();
        for (int windows = 0; Robot::Front() && windows < 10; ++windows)
            Robot::CloseWindow();
    });
    return RunWizard(&drive);
}

} // namespace krt550
