#include "host/hands/front_window.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>

#include <functional>
#include <queue>

namespace krt550 {
namespace {

bool IsWindowOfAPerson(const QWidget* widget) {
    const Qt::WindowType type = widget->windowType();
    return widget->isVisible() && (type == Qt::Window || type == Qt::Dialog);
}

QWidgetList VisibleWindows() {
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* widget) { return !IsWindowOfAPerson(widget); });
    return windows;
}

/// Walks the visible widgets below (and with) `top`, the nearest first, until `accepts` says yes.
QWidget* FindVisible(QWidget* top, const std::function<bool(QWidget*)>& accepts) {
    std::queue<QWidget*> waiting;
    if (top)
        waiting.push(top);
    for (; !waiting.empty(); waiting.pop()) {
        QWidget* widget = waiting.front();
        if (!widget->isVisible())
            continue;
        if (accepts(widget))
            return widget;
        for (QObject* child : widget->children()) {
            auto* below = qobject_cast<QWidget*>(child);
            if (below && !below->isWindow())
                waiting.push(below);
        }
    }
    return nullptr;
}

bool IsLabelOfAnother(const QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label && label->buddy();
}

// A caption doubles the ampersand that is no shortcut mark.
QString WithoutMarks(QString text) {
    return text.replace(QLatin1String("&&"), QLatin1String("&"));
}

} // namespace

QWidget* FrontWindow() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    const QWidgetList windows = VisibleWindows();
    QWidget* active = QApplication::activeWindow();
    if (windows.contains(active))
        return active;
    return windows.isEmpty() ? nullptr : windows.last();
}

QMessageBox* BoxInFront() {
    return qobject_cast<QMessageBox*>(FrontWindow());
}

QWidget* FindWindow(const QString& title) {
    const QWidgetList windows = VisibleWindows();
    for (QWidget* window : windows)
        if (MatchesText(title, window->windowTitle()))
            return window;
    return nullptr;
}

QString VisibleTitles() {
    QStringList titles;
    const QWidgetList windows = VisibleWindows();
    for (const QWidget* window : windows)
        titles.append(QStringLiteral("\"%1\"").arg(window->windowTitle()));
    return titles.isEmpty() ? QStringLiteral("no window") : titles.join(QLatin1String(", "));
}

QWidget* FindControl(QWidget* window, int id) {
    const QString name = QString::number(id);
    return FindVisible(window, [&](const QWidget* widget) { return widget->objectName() == name; });
}

QWidget* FindRowControl(QWidget* window, int reg) {
    QWidget* marked = FindVisible(window, [reg](const QWidget* widget) {
        const QVariant shown = widget->property("register");
        return shown.isValid() && shown.toInt() == reg && !IsLabelOfAnother(widget);
    });
    constexpr int kFirstValueId = 20000;
    return marked ? marked : FindControl(window, kFirstValueId + reg);
}

QList<int> VisibleLayouts(QWidget* window) {
    QList<int> layouts;
    FindVisible(window, [&](const QWidget* widget) {
        const QVariant layout = widget->property("layout");
        if (layout.isValid() && !layouts.contains(layout.toInt()))
            layouts.append(layout.toInt());
        return false;
    });
    return layouts;
}

QString ShownText(const QWidget* control) {
    for (const char* property : {"currentText", "plainText", "title", "value"})
        if (control->metaObject()->indexOfProperty(property) >= 0)
            return WithoutMarks(control->property(property).toString());
    const QString text = control->property("text").toString();
    return control->inherits("QLineEdit") ? text : WithoutMarks(text);
}

void BringToFront(QWidget* window) {
    if (window->isActiveWindow())
        return;
    window->raise();
    window->activateWindow();
    QApplication::setActiveWindow(window);
}

bool MatchesText(const QString& pattern, const QString& text) {
    QStringList parts = pattern.simplified().split(QLatin1Char('*'));
    for (QString& part : parts)
        part = QRegularExpression::escape(part);
    const QRegularExpression expression(QRegularExpression::anchoredPattern(parts.join(QLatin1String(".*"))));
    return expression.match(text.simplified()).hasMatch();
}

} // namespace krt550
