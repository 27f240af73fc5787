#include "host/play/act.h"

#include "host/hands/front_window.h"
#include "host/hands/hands.h"
#include "host/play/stage.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QTabBar>

namespace krt550 {
namespace {

constexpr int kStartButton = 158;
constexpr int kViewButton = 170;
constexpr int kFirstAdvancedPage = 8;
/// Box of each page on the start page; the index is the page's.
constexpr int kPageBoxes[] = {0, 160, 164, 165, 166, 167, 168, 169, 171, 173, 174, 175, 176, 177, 178, 179, 180};

QString Describe(const Arguments& arguments) {
    return (arguments.byRegister ? QStringLiteral("the row of %1") : QStringLiteral("control %1"))
        .arg(arguments.number);
}

/// The control that an action is about, ready for input; null and the reason in `error` when it is not.
QWidget* ControlToUse(const Arguments& arguments, QString& error) {
    QWidget* front = FrontWindow();
    QWidget* control =
        arguments.byRegister ? FindRowControl(front, arguments.number) : FindControl(front, arguments.number);
    if (!control)
        error = QStringLiteral("%1 is not on screen").arg(Describe(arguments));
    else if (!control->isEnabled())
        error = QStringLiteral("%1 (\"%2\") is disabled").arg(Describe(arguments), ShownText(control));
    return error.isEmpty() ? control : nullptr;
}

QString Press(const Hands& hands, int id) {
    Arguments arguments;
    arguments.number = id;
    QString error;
    QWidget* control = ControlToUse(arguments, error);
    return control ? hands.click(control) : error;
}

QString Tick(const Hands& hands, int page, bool tick) {
    const int id = kPageBoxes[page];
    if (page >= kFirstAdvancedPage && !FindControl(FrontWindow(), id))
        if (const QString error = Press(hands, kViewButton); !error.isEmpty())
            return error;
    const auto* box = qobject_cast<QAbstractButton*>(FindControl(FrontWindow(), id));
    if (box && box->isChecked() == tick)
        return {};
    return Press(hands, id);
}

QString Set(const Hands& hands, const Arguments& arguments) {
    QString error;
    QWidget* control = ControlToUse(arguments, error);
    if (!control)
        return error;
    if (!control->inherits("QLineEdit") && !control->inherits("QTextEdit") && !control->inherits("QPlainTextEdit"))
        return QStringLiteral("%1 is no field to type into").arg(Describe(arguments));
    return hands.typeAndLeave(control, arguments.text);
}

QString Choose(const Hands& hands, const Arguments& arguments) {
    QString error;
    QWidget* control = ControlToUse(arguments, error);
    auto* list = qobject_cast<QComboBox*>(control);
    if (control && !list)
        error = QStringLiteral("%1 has no list").arg(Describe(arguments));
    return list ? hands.pickEntry(list, arguments.text) : error;
}

QString Menu(const Hands& hands, const Arguments& arguments) {
    QString error;
    QWidget* control = ControlToUse(arguments, error);
    return control ? hands.pickFromMenu(control, arguments.text) : error;
}

QString Key(const Hands& hands, const Arguments& arguments) {
    QString error;
    QWidget* control = ControlToUse(arguments, error);
    return control ? hands.pressKey(control, arguments.text) : error;
}

QMessageBox::StandardButton ButtonOf(BoxAnswer answer) {
    switch (answer) {
    case BoxAnswer::Cancel:
        return QMessageBox::Cancel;
    case BoxAnswer::Yes:
        return QMessageBox::Yes;
    case BoxAnswer::No:
        return QMessageBox::No;
    case BoxAnswer::Ok:
        break;
    }
    return QMessageBox::Ok;
}

QString Answer(const Hands& hands, BoxAnswer answer) {
    const QMessageBox* box = BoxInFront();
    QAbstractButton* button = box ? box->button(ButtonOf(answer)) : nullptr;
    if (!button)
        return QStringLiteral("there is no message box with such a button");
    return hands.click(button);
}

QString BringTabToFront(const Hands& hands, const QString& text) {
    const QList<QTabBar*> bars = FrontWindow()->findChildren<QTabBar*>();
    QString error = QStringLiteral("there are no tabs on screen");
    for (QTabBar* tabs : bars) {
        if (!tabs->isVisible())
            continue;
        error = hands.clickTab(tabs, text);
        if (error.isEmpty())
            break;
    }
    return error;
}

QString Shoot(const QString& directory, const QString& name) {
    const QString path = QDir(directory).filePath(name);
    if (!QDir().mkpath(QFileInfo(path).path()) || !FrontWindow()->grab().save(path))
        return QStringLiteral("the picture %1 cannot be written").arg(path);
    return {};
}

QString Measure(Arguments arguments, const ActingContext& context) {
    const std::optional<QString> text = context.stage.MeasureText(static_cast<quint16>(arguments.number));
    if (!text)
        return QStringLiteral("nobody can measure %1 at the motor").arg(arguments.number);
    arguments.text = *text;
    context.print(QLatin1String("  measured: ") + *text);
    return Set(context.hands, arguments);
}

QString Compare(const Arguments& arguments, const ActingContext& context) {
    bool isNear = false;
    const QString text =
        context.stage.CompareWithMotor(static_cast<quint16>(arguments.number), arguments.percent, isNear);
    if (!isNear)
        return text;
    context.print(QLatin1String("  ") + text);
    return {};
}

QString Close(const Arguments& arguments) {
    QWidget* window = arguments.hasText ? FindWindow(arguments.text) : FrontWindow();
    if (!window)
        return QStringLiteral("there is no window \"%1\", but %2").arg(arguments.text, VisibleTitles());
    window->close();
    return {};
}

} // namespace

QString Act(const PlayAction& action, const ActingContext& context) {
    const Arguments& arguments = action.arguments;
    const Hands& hands = context.hands;
    const auto reg = static_cast<quint16>(arguments.number);
    switch (action.verb) {
    case Verb::Start:
        return Press(hands, kStartButton);
    case Verb::Tick:
    case Verb::Untick:
        return Tick(hands, arguments.number, action.verb == Verb::Tick);
    case Verb::Press:
        return Press(hands, arguments.number);
    case Verb::Set:
        return Set(hands, arguments);
    case Verb::Choose:
        return Choose(hands, arguments);
    case Verb::Menu:
        return Menu(hands, arguments);
    case Verb::Key:
        return Key(hands, arguments);
    case Verb::Answer:
        return Answer(hands, arguments.answer);
    case Verb::Tab:
        return BringTabToFront(hands, arguments.text);
    case Verb::Shot:
        return Shoot(context.shotDirectory, arguments.text);
    case Verb::Drive:
        return context.stage.ChangeDrive(DriveSide::Own, reg, arguments.text);
    case Verb::Partner:
        return context.stage.ChangeDrive(DriveSide::Partner, reg, arguments.text);
    case Verb::Plc:
        return context.stage.SendFromPlc(arguments.number, static_cast<quint16>(static_cast<int>(arguments.value)));
    case Verb::Terminal:
        return context.stage.SetTerminal(arguments.terminal, arguments.value);
    case Verb::Fault:
        return context.stage.SwitchFault(arguments.text);
    case Verb::Show:
        context.print(QLatin1String("  ") + context.stage.DescribeDrive(reg));
        return {};
    case Verb::Measure:
        return Measure(arguments, context);
    case Verb::Compare:
        return Compare(arguments, context);
    case Verb::ClearLog:
        context.stage.ClearLog();
        return {};
    case Verb::Close:
        return Close(arguments);
    case Verb::Say: // has been said when the line was printed
    case Verb::Wait:
    case Verb::Expect:
        break;
    }
    return {};
}

bool LooksPastBoxes(Verb verb) {
    switch (verb) {
    case Verb::Answer:
    case Verb::Shot:
    case Verb::Drive:
    case Verb::Partner:
    case Verb::Plc:
    case Verb::Terminal:
    case Verb::Fault:
    case Verb::Show:
    case Verb::Compare:
    case Verb::Say:
    case Verb::ClearLog:
        return true;
    default:
        return false;
    }
}

bool NeedsWindow(Verb verb) {
    switch (verb) {
    case Verb::Wait:
    case Verb::Expect:
        return false;
    default:
        return verb == Verb::Answer || verb == Verb::Shot || !LooksPastBoxes(verb);
    }
}

} // namespace krt550
