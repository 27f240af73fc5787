#include "host/hands/input.h"

#include "host/hands/front_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTimer>
#include <QtTest/QTest>

#include <algorithm>

namespace krt550 {
namespace {

QPoint MarkOf(QAbstractButton* button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    return button->style()->subElementRect(element, &option, button).center();
}

QPoint PointToClick(QWidget* control) {
    if (auto* check = qobject_cast<QCheckBox*>(control))
        return MarkOf(check, QStyle::SE_CheckBoxIndicator);
    if (auto* radio = qobject_cast<QRadioButton*>(control))
        return MarkOf(radio, QStyle::SE_RadioButtonIndicator);
    return control->rect().center();
}

void ClickAt(QWidget* widget, QPoint point) {
    const QPointer<QWidget> alive(widget);
    BringToFront(widget->window());
    QTest::mousePress(widget, Qt::LeftButton, {}, point);
    if (alive)
        QTest::mouseRelease(alive, Qt::LeftButton, {}, point);
}

void SendKey(const QPointer<QWidget>& widget, Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers) {
    if (widget)
        QTest::sendKeyEvent(QTest::Press, widget, key, text, modifiers);
    if (widget)
        QTest::sendKeyEvent(QTest::Release, widget, key, text, modifiers);
}

void SendKey(const QPointer<QWidget>& widget, Qt::Key key) {
    SendKey(widget, key, {}, Qt::NoModifier);
}

void SendCharacter(const QPointer<QWidget>& widget, QChar c) {
    const char latin = c.toLatin1();
    const Qt::Key key = latin > 0 ? QTest::asciiToKey(latin) : Qt::Key_unknown;
    SendKey(widget, key, QString(c), c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier);
}

/// Moves within an open list by the arrow keys, which skip what cannot be chosen.
bool MoveToRow(const QPointer<QWidget>& keys, const QComboBox& list, int row) {
    for (int steps = 0; keys && steps < list.count() && list.view()->currentIndex().row() != row; ++steps)
        SendKey(keys, list.view()->currentIndex().row() < row ? Qt::Key_Down : Qt::Key_Up);
    return keys && list.view()->currentIndex().row() == row;
}

} // namespace

QString Click(QWidget* control) {
    ClickAt(control, PointToClick(control));
    return {};
}

QString TypeInto(QWidget* field, const QString& text) {
    const QPointer<QWidget> alive(field);
    const QPointer<QWidget> window(field->window());
    ClickAt(field, field->rect().center());
    if (alive)
        SendKey(alive, Qt::Key_A, {}, Qt::ControlModifier);
    if (text.isEmpty())
        SendKey(alive, Qt::Key_Delete);
    for (const QChar c : text) {
        if (FrontWindow() != window)
            return {};
        SendCharacter(alive, c);
    }
    const auto* edit = qobject_cast<QLineEdit*>(alive.data());
    if (edit && edit->text() != text)
        return QStringLiteral("typed \"%1\", the field shows \"%2\"").arg(text, edit->text());
    return {};
}

QString TypeAndLeave(QWidget* field, const QString& text) {
    const QPointer<QWidget> alive(field);
    const QPointer<QWidget> window(field->window());
    const QString error = TypeInto(field, text);
    if (error.isEmpty() && FrontWindow() == window)
        SendKey(alive, Qt::Key_Tab);
    return error;
}

QString PickEntry(QComboBox* list, const QString& entry) {
    const int row = list->findText(entry, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0) {
        QStringList entries;
        for (int i = 0; i < list->count(); ++i)
            entries.append(QStringLiteral("\"%1\"").arg(list->itemText(i)));
        return QStringLiteral("the list has no \"%1\" but %2")
            .arg(entry, entries.isEmpty() ? QStringLiteral("no entries") : entries.join(QLatin1String(", ")));
    }
    const QPointer<QComboBox> alive(list);
    ClickAt(list, list->rect().center());
    if (!alive || !alive->view()->isVisible())
        return QStringLiteral("the list does not open");
    const QPointer<QWidget> keys(alive->view());
    const bool reached = MoveToRow(keys, *alive, row);
    SendKey(keys, reached ? Qt::Key_Return : Qt::Key_Escape);
    return reached ? QString() : QStringLiteral("\"%1\" cannot be chosen").arg(entry);
}

QString PickFromMenu(QWidget* control, const QString& entry) {
    QString error = QStringLiteral("there is no menu");
    QTimer::singleShot(0, control, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        const QList<QAction*> actions = menu->actions();
        const auto found =
            std::ranges::find_if(actions, [&entry](const QAction* action) { return action->text() == entry; });
        error = found != actions.end() ? QString() : QStringLiteral("the menu has no \"%1\"").arg(entry);
        if (found == actions.end()) {
            menu->close();
            return;
        }
        menu->setActiveAction(*found);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, QPoint(2, 2), control->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(control, &rightClick);
    return error;
}

QString ClickTab(QTabBar* tabs, const QString& text) {
    for (int i = 0; i < tabs->count(); ++i) {
        if (!tabs->isTabVisible(i) || !MatchesText(text, tabs->tabText(i)))
            continue;
        if (!tabs->isTabEnabled(i))
            return QStringLiteral("tab \"%1\" is disabled").arg(text);
        ClickAt(tabs, tabs->tabRect(i).center());
        return {};
    }
    return QStringLiteral("there is no tab \"%1\"").arg(text);
}

QString PressKey(QWidget* control, const QString& key) {
    const QKeyCombination combination = QKeySequence::fromString(key, QKeySequence::PortableText)[0];
    BringToFront(control->window());
    control->setFocus(Qt::OtherFocusReason);
    const bool character = combination.keyboardModifiers() == Qt::NoModifier && combination.key() < Qt::Key_Escape;
    SendKey(QPointer<QWidget>(control), combination.key(),
            character ? QString(QChar(ushort(combination.key()))).toLower() : QString(),
            combination.keyboardModifiers());
    return {};
}

} // namespace krt550
