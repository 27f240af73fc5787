// The wizard by keyboard and screen reader: help, shortcuts, where the focus is, and what everything is called.
#include "tests/shell/wizard_fixture.h"

#include "wizard/diagnosis/diagnosis_dialog.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/resources/module_resources.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <set>

namespace krt550 {
namespace {

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* focus = QApplication::focusWidget();
    ASSERT_TRUE(focus);
    QTest::keyClick(focus, key, modifiers);
}

QString AccessibleText(QWidget* widget, QAccessible::Text what) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(what) : QString();
}

/// Parameters for every row that a layout shows.
std::vector<ParameterDescription> ParametersOfAllRows() {
    std::vector<ParameterDescription> parameters = WizardParameters();
    std::set<quint16> known;
    for (const ParameterDescription& parameter : parameters)
        known.insert(parameter.reg);
    const CModuleResources resources;
    for (int number = 100; number < 10100; ++number) {
        const auto layout = resources.GetLayout(number);
        for (const ControlLayout& control : layout ? layout->controls : std::vector<ControlLayout>())
            if (control.reg != 0 && known.insert(control.reg).second)
                parameters.push_back(control.kind == ControlKind::DropDown
                                         ? List(control.reg, "Switch", {{0, "Off"}, {1, "On"}})
                                         : Number(control.reg, "Value", 0, 0, 100));
    }
    return parameters;
}

class Keyboard : public WizardFixture {
protected:
    /// Runs the script on every page in turn, and on every tab of it, with `where` for messages.
    void OnEveryPageAndTab(const std::function<void(const QString& where)>& script) {
        Robot::Press(kView);
        for (int box = 160; box <= 180; ++box)
            if (auto* check = qobject_cast<QAbstractButton*>(Robot::Find(box)); check && check->isCheckable())
                Robot::Press(box);
        int pages = 0;
        do {
            auto* tabs = Robot::Front()->findChildren<QTabBar*>().value(0);
            for (QTabBar* candidate : Robot::Front()->findChildren<QTabBar*>())
                if (candidate->isVisible())
                    tabs = candidate;
            const int count = tabs && tabs->isVisible() ? tabs->count() : 1;
            for (int tab = 0; tab < count; ++tab) {
                if (count > 1)
                    tabs->setCurrentIndex(tab);
                script(Robot::Title() + QString(" tab %1").arg(tab));
            }
            Robot::Press(kNext);
        } while (Robot::Layout() != 107 && ++pages < 20);
        EXPECT_EQ(pages, 16);
    }
};

TEST_F(Keyboard, F1IsTheHelpButtonOfThePageFromEveryControl) {
    FakeDrive drive(ParametersOfAllRows());
    drive.wizardPath = PageFiles().WizardPath();
    RunWizardWith(drive, [this] {
        OnEveryPageAndTab([](const QString& where) {
            int helps = 0;
            const auto connection = QObject::connect(static_cast<QAbstractButton*>(Robot::Control(kHelp)),
                                                     &QAbstractButton::clicked, qApp, [&helps] { ++helps; });
            int places = 0;
            QWidget* const front = Robot::Front();
            for (QWidget* next = front->nextInFocusChain(); next != front; next = next->nextInFocusChain()) {
                if (!(next->focusPolicy() & Qt::TabFocus) || !next->isVisible() || !next->isEnabled())
                    continue;
                next->setFocus();
                Key(Qt::Key_F1);
                EXPECT_EQ(helps, ++places) << where.toStdString() << " in " << next->objectName().toStdString();
            }
            EXPECT_GT(places, 2) << where.toStdString();
            QObject::disconnect(connection);
        });
    });
}

// What a screen reader calls a thing is all that some people have of it.
TEST_F(Keyboard, EverythingHasANameAndNothingAMarkup) {
    FakeDrive drive(ParametersOfAllRows());
    drive.wizardPath = PageFiles().WizardPath();
    RunWizardWith(drive, [this] {
        OnEveryPageAndTab([](const QString& where) {
            for (QWidget* widget : Robot::Front()->findChildren<QWidget*>()) {
                if (!widget->isVisible() || widget->objectName().toInt() == 0)
                    continue;
                const bool speaks = widget->focusPolicy() != Qt::NoFocus || qobject_cast<QProgressBar*>(widget);
                const QString name = AccessibleText(widget, QAccessible::Name);
                EXPECT_TRUE(!speaks || !name.isEmpty())
                    << where.toStdString() << ": " << widget->objectName().toStdString();
                for (const QString& text : {name, AccessibleText(widget, QAccessible::Description)})
                    EXPECT_FALSE(text.contains(QLatin1Char('<')) && text.contains(QLatin1Char('>')))
                        << text.toStdString();
            }
        });
    });
}

TEST_F(Keyboard, AltAndALetterPressTheCommonButtons) {
    Run([this] {
        struct {
            Qt::Key key;
            int layout;
            const char* writes;
        } const steps[] = {{Qt::Key_S, 100, ""}, {Qt::Key_N, 101, ""},
                           {Qt::Key_B, 100, ""}, {Qt::Key_A, 100, "write 9904=500"},
                           {Qt::Key_C, 107, ""}, {Qt::Key_C, 0, ""}};
        for (const auto& step : steps) {
            if (*step.writes)
                Robot::TypeOnly(29904, "500");
            m_drive.TakeLog();
            Key(step.key, Qt::AltModifier);
            EXPECT_EQ(Robot::Layout(), step.layout) << step.key;
            EXPECT_EQ(m_drive.TakeLog({"write"}).join(','), step.writes);
            if (step.layout == 100) {
                EXPECT_EQ(Robot::Text(kNext), "Next >");
                EXPECT_EQ(static_cast<QAbstractButton*>(Robot::Control(kNext))->text(), "Next >");
            }
        }
    });
}

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

TEST_F(Keyboard, ATickThroughAccessibilityCountsAsOne) {
    Run([] {
        QAccessibleInterface* box = QAccessible::queryAccessibleInterface(Robot::Control(164));
        box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_TRUE(Robot::IsEnabled(kNext));
        box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_FALSE(Robot::IsEnabled(kNext));
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
        EXPECT_EQ(helps, 2);
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(dialog.DoModal(), CDialog::kCancel);
    EXPECT_EQ(helps, 2);
}

} // namespace
} // namespace krt550
