// The wizard by keyboard: help, shortcuts, and where the focus is.
#include "tests/shell/wizard_fixture.h"

#include "wizard/diagnosis/diagnosis_dialog.h"
#include "wizard/resources/module_resources.h"

#include <QTest>

namespace krt550 {
namespace {

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* focus = QApplication::focusWidget();
    ASSERT_TRUE(focus);
    QTest::keyClick(focus, key, modifiers);
}

using Keyboard = WizardFixture;

TEST_F(Keyboard, EnterInThePageInFrontNeverReachesTheOneBehind) {
    Run([this] {
        for (const int box : {160, 165, 166})
            Robot::Press(box);
        Robot::Press(kNext);
        Robot::Type(29904, "500");
        Key(Qt::Key_Return);
        EXPECT_EQ(Robot::Layout(), 103);
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9904=500"}));
        EXPECT_TRUE(QApplication::focusWidget()->isVisible());
        Key(Qt::Key_Return);
        EXPECT_EQ(Robot::Layout(), 104);
        EXPECT_TRUE(QApplication::focusWidget()->isVisible());
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
    });
}

TEST_F(Keyboard, TheDiagnosisDialogHasEnterForCloseAndF1ForHelp) {
    const CModuleResources resources;
    const ResourceScope scope(resources);
    CDiagnosisDialog dialog;
    int helps = 0;
    QTimer::singleShot(0, &dialog, [&] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(Robot::Front()));
        QObject::connect(static_cast<QAbstractButton*>(Robot::Control(kHelp)), &QAbstractButton::clicked, &dialog,
                         [&helps] { ++helps; });
        Key(Qt::Key_F1);
        Key(Qt::Key_H, Qt::AltModifier);
        // Held down they press once.
        QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_F1, {}, {}, true);
        QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_H, Qt::AltModifier, {}, true);
        EXPECT_EQ(helps, 2);
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(dialog.DoModal(), CDialog::kCancel);
    EXPECT_EQ(helps, 2);
}

} // namespace
} // namespace krt550
