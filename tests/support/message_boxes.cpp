#include "tests/support/message_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>

#include <gtest/gtest.h>

namespace krt550 {

MessageBoxes::MessageBoxes() { qApp->installEventFilter(this); }

MessageBoxes::~MessageBoxes() { ExpectNoMore(); }

void MessageBoxes::Expect(const QString& text, Answer answer) { m_expected.push_back({text, answer}); }

void MessageBoxes::ExpectNoMore() {
    for (const Expectation& missing : m_expected)
        ADD_FAILURE() << "message box did not come: \"" << missing.text.toStdString() << '"';
    m_expected.clear();
}

bool MessageBoxes::eventFilter(QObject* watched, QEvent* event) {
    if (auto* box = qobject_cast<QMessageBox*>(watched); box && event->type() == QEvent::Show) {
        // Answered from its own loop, once it runs.
        const QPointer<QMessageBox> shown(box);
        QMetaObject::invokeMethod(
            box, [this, shown] { if (shown) Take(*shown); }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void MessageBoxes::Take(QMessageBox& box) {
    Answer answer = Answer::Cancel;
    if (m_expected.empty()) {
        ADD_FAILURE() << "unexpected message box: \"" << box.text().toStdString() << '"';
    } else {
        EXPECT_EQ(box.text().toStdString(), m_expected.front().text.toStdString());
        answer = m_expected.front().answer;
        m_expected.erase(m_expected.begin());
    }
    QAbstractButton* button = box.button(answer == Answer::Cancel ? QMessageBox::Cancel : QMessageBox::Ok);
    if (!button)
        button = box.button(QMessageBox::Ok);
    button->click();
}

} // namespace krt550
