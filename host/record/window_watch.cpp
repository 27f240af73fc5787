#include "host/record/window_watch.h"

#include "host/record/recorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>

namespace krt550 {
namespace {

// A caption marks its shortcut.
QString Caption(const QAbstractButton* button) {
    return button ? button->text().remove(QLatin1Char('&')) : QString();
}

QString ButtonTexts(const QMessageBox& box) {
    QStringList texts;
    for (const QAbstractButton* button : box.buttons())
        texts.append(Caption(button));
    return texts.join(QLatin1String(" / "));
}

} // namespace

CWindowWatch::CWindowWatch(CRecorder& recorder) : m_recorder(recorder) {
    QCoreApplication::instance()->installEventFilter(this); // a command has no windows
}

bool CWindowWatch::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Paint && onPainted && object->isWidgetType())
        std::exchange(onPainted, {})();
    if (event->type() != QEvent::Show || !object->isWidgetType())
        return false;
    if (auto* box = qobject_cast<QMessageBox*>(object))
        OnBox(*box);
    else if (const QVariant layout = object->property("layout"); layout.isValid())
        OnPage(*static_cast<QWidget*>(object), layout.toInt());
    return false;
}

void CWindowWatch::OnBox(QMessageBox& box) {
    if (m_open.contains(&box))
        return;
    m_open.insert(&box, m_recorder.Note({.kind = "box", .text = box.text(), .detail = ButtonTexts(box)}));
    connect(&box, &QMessageBox::finished, this, [this, &box] {
        const QString answer = Caption(box.clickedButton());
        OnAnswer(&box, answer.isEmpty() ? QStringLiteral("closed") : answer);
    });
    connect(&box, &QObject::destroyed, this, [this](QObject* gone) { OnAnswer(gone, QStringLiteral("taken away")); });
}

void CWindowWatch::OnAnswer(QObject* box, const QString& answer) {
    if (const auto found = m_open.constFind(box); found != m_open.constEnd()) {
        m_recorder.NoteOutcome(*found, std::nullopt, answer);
        m_open.erase(found);
    }
    disconnect(box, nullptr, this, nullptr);
}

void CWindowWatch::OnPage(const QWidget& page, int layout) {
    const QString title = page.window()->windowTitle();
    if (page.isWindow() || (layout == m_layout && title == m_title))
        return;
    m_layout = layout;
    m_title = title;
    m_recorder.Note({.kind = "page", .text = title, .detail = QString::number(layout)});
}

} // namespace krt550
