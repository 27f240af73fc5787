#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QStringList>

namespace krt550 {

/// Answers every message box with OK at once, and remembers its text.
class CYesSayer : public QObject {
public:
    CYesSayer() { qApp->installEventFilter(this); }
    QStringList texts;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* box = qobject_cast<QMessageBox*>(watched); box && event->type() == QEvent::Show) {
            texts.append(box->text());
            QMetaObject::invokeMethod(
                box, [box] { box->button(QMessageBox::Ok)->click(); }, Qt::QueuedConnection);
        }
        return false;
    }
};

} // namespace krt550
