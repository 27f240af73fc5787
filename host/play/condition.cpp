#include "host/play/condition.h"

#include "host/hands/front_window.h"
#include "host/play/stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QProgressBar>

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

QString Quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

Finding Compare(const QString& expected, const QString& found) {
    return {MatchesText(expected, found), Quoted(found)};
}

QString MissingText(const Arguments& arguments) {
    return (arguments.byRegister ? QStringLiteral("no row of %1 on screen") : QStringLiteral("no control %1 on screen"))
        .arg(arguments.number);
}

QWidget* ControlOf(const Arguments& arguments) {
    return arguments.byRegister ? FindRowControl(FrontWindow(), arguments.number)
                                : FindControl(FrontWindow(), arguments.number);
}

Finding CheckText(const Arguments& arguments) {
    const QWidget* control = ControlOf(arguments);
    return control ? Compare(arguments.text, ShownText(control)) : Finding{false, MissingText(arguments)};
}

Finding CheckEnabled(const Arguments& arguments, bool expected) {
    const QWidget* control = ControlOf(arguments);
    if (!control)
        return {false, MissingText(arguments)};
    return {control->isEnabled() == expected,
            control->isEnabled() ? QStringLiteral("an enabled control") : QStringLiteral("a disabled control")};
}

Finding CheckVisible(const Arguments& arguments, bool expected) {
    const QWidget* control = ControlOf(arguments);
    return {(control != nullptr) == expected, control ? QStringLiteral("a visible control") : MissingText(arguments)};
}

Finding CheckTicked(const Arguments& arguments, bool expected) {
    const QWidget* control = ControlOf(arguments);
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if (!button || !button->isCheckable())
        return {false, control ? QStringLiteral("a control that cannot be ticked") : MissingText(arguments)};
    return {button->isChecked() == expected,
            button->isChecked() ? QStringLiteral("a tick") : QStringLiteral("no tick")};
}

Finding CheckFocus(const Arguments& arguments) {
    const QWidget* focus = QApplication::focusWidget();
    const QString found = focus ? QStringLiteral("control %1").arg(focus->objectName()) : QStringLiteral("no focus");
    return {focus && focus == ControlOf(arguments), found};
}

Finding CheckPage(int layout) {
    const QList<int> layouts = VisibleLayouts(FrontWindow());
    QStringList texts;
    for (const int visible : layouts)
        texts.append(QString::number(visible));
    return {layouts.contains(layout),
            texts.isEmpty() ? QStringLiteral("no layout") : QLatin1String("layout ") + texts.join(QLatin1String(", "))};
}

Finding CheckBox(const Condition& condition) {
    const QMessageBox* box = BoxInFront();
    const QString found =
        box ? QStringLiteral("a message box \"%1\"").arg(box->text().simplified()) : QStringLiteral("no message box");
    const bool there = box && (!condition.arguments.hasText || MatchesText(condition.arguments.text, box->text()));
    return {there != condition.negated, found};
}

Finding CheckProgress(int least) {
    QWidget* front = FrontWindow();
    const QList<QProgressBar*> bars = front ? front->findChildren<QProgressBar*>() : QList<QProgressBar*>();
    Finding finding{false, QStringLiteral("no progress bar on screen")};
    for (const QProgressBar* bar : bars) {
        if (!bar->isVisible())
            continue;
        finding.found = QStringLiteral("progress %1").arg(bar->value());
        finding.holds = finding.holds || bar->value() >= least;
    }
    return finding;
}

/// `found` is no farther from `expected` than a share of it.
bool IsWithin(double expected, double found, int percent) {
    return std::abs(found - expected) <= std::abs(expected) * percent / 100;
}

Finding CheckDrive(const Arguments& arguments, DriveSide side, CPlayStage& stage) {
    const auto reg = static_cast<quint16>(arguments.number);
    const std::optional<QString> text = stage.DriveText(side, reg);
    if (!text)
        return {false,
                side == DriveSide::Own ? stage.DescribeDrive(reg) : QStringLiteral("no such drive or parameter")};
    if (arguments.percent == 0)
        return Compare(arguments.text, *text);
    bool isNumber = false;
    bool showsNumber = false;
    const double expected = arguments.text.toDouble(&isNumber);
    const double found = text->toDouble(&showsNumber);
    return {isNumber && showsNumber && IsWithin(expected, found, arguments.percent), Quoted(*text)};
}

Finding CheckPlc(const Arguments& arguments, CPlayStage& stage) {
    const std::optional<quint16> word = stage.ReceivedByPlc(arguments.number);
    if (!word)
        return {false, QStringLiteral("a fieldbus that does not carry word %1").arg(arguments.number)};
    const auto found = static_cast<qint16>(*word);
    const bool same = *word == static_cast<quint16>(static_cast<int>(arguments.value));
    return {same || IsWithin(arguments.value, found, arguments.percent),
            QStringLiteral("%1 (0x%2)").arg(found).arg(*word, 4, 16, QLatin1Char('0'))};
}

Finding CheckTerminal(const Arguments& arguments, CPlayStage& stage) {
    const std::optional<double> value = stage.TerminalValue(arguments.terminal);
    if (!value)
        return {false, QStringLiteral("a drive whose terminals nobody can see")};
    constexpr double kShown = 0.005; // what two decimals of a voltage can tell
    const bool holds =
        std::abs(*value - arguments.value) <= kShown || IsWithin(arguments.value, *value, arguments.percent);
    return {holds, TerminalText(arguments.terminal, *value)};
}

int CountCalls(const QString& words, const QStringList& lines) {
    const QString wanted = words.simplified();
    return static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const QString& line) {
        return QString(line.simplified() + QLatin1Char(' ')).contains(QLatin1Char(' ') + wanted + QLatin1Char(' '));
    }));
}

Finding CheckCalls(const Condition& condition, const QStringList& lines) {
    const int count = CountCalls(condition.arguments.text, lines);
    const bool holds =
        condition.kind == ConditionKind::Calls ? count == condition.arguments.number : (count > 0) != condition.negated;
    return {holds, QStringLiteral("%1 such calls among %2").arg(count).arg(lines.size())};
}

} // namespace

Finding CheckCondition(const Condition& condition, CPlayStage& stage, const PlayState& state) {
    const Arguments& arguments = condition.arguments;
    switch (condition.kind) {
    case ConditionKind::Title:
        return Compare(arguments.text, FrontWindow() ? FrontWindow()->windowTitle() : QString());
    case ConditionKind::Page:
        return CheckPage(arguments.number);
    case ConditionKind::Value:
    case ConditionKind::Text:
        return CheckText(arguments);
    case ConditionKind::Box:
        return CheckBox(condition);
    case ConditionKind::Window:
        return {(FindWindow(arguments.text) != nullptr) != condition.negated, VisibleTitles()};
    case ConditionKind::Enabled:
    case ConditionKind::Disabled:
        return CheckEnabled(arguments, condition.kind == ConditionKind::Enabled);
    case ConditionKind::Visible:
    case ConditionKind::Hidden:
        return CheckVisible(arguments, condition.kind == ConditionKind::Visible);
    case ConditionKind::Ticked:
    case ConditionKind::Unticked:
        return CheckTicked(arguments, condition.kind == ConditionKind::Ticked);
    case ConditionKind::Focus:
        return CheckFocus(arguments);
    case ConditionKind::Progress:
        return CheckProgress(arguments.number);
    case ConditionKind::Drive:
        return CheckDrive(arguments, DriveSide::Own, stage);
    case ConditionKind::Partner:
        return CheckDrive(arguments, DriveSide::Partner, stage);
    case ConditionKind::Plc:
        return CheckPlc(arguments, stage);
    case ConditionKind::Terminal:
        return CheckTerminal(arguments, stage);
    case ConditionKind::Log:
    case ConditionKind::Calls:
        return CheckCalls(condition, stage.LogLines());
    case ConditionKind::Idle:
        return {state.idle, QStringLiteral("an action still at work")};
    case ConditionKind::Closed:
        return {state.closed, VisibleTitles()};
    case ConditionKind::Seconds:
        break;
    }
    return {};
}

bool LooksPastBoxes(ConditionKind kind) {
    switch (kind) {
    case ConditionKind::Box:
    case ConditionKind::Window:
    case ConditionKind::Log:
    case ConditionKind::Calls:
        return true;
    default:
        return MovesByItself(kind);
    }
}

bool MovesByItself(ConditionKind kind) {
    return kind == ConditionKind::Drive || kind == ConditionKind::Partner || kind == ConditionKind::Plc ||
           kind == ConditionKind::Terminal;
}

bool NeedsWindow(ConditionKind kind) {
    switch (kind) {
    case ConditionKind::Idle:
    case ConditionKind::Closed:
    case ConditionKind::Seconds:
        return false;
    default:
        return !LooksPastBoxes(kind);
    }
}

} // namespace krt550
