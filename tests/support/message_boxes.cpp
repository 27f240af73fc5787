#include "tests/support/message_boxes.h"

namespace krt550 {
namespace {

bool Matches(const QString& expected, const QString& text) {
    return expected.endsWith(u'*') ? text.startsWith(expected.chopped(1)) : text == expected;
}

void Press(QMessageBox& box, Answer answer) {
    QAbstractButton* button = box.button(answer == Answer::Ok ? QMessageBox::Ok : QMessageBox::Cancel);
    EXPECT_TRUE(button) << "the message box has no such button: " << box.text().toStdString();
    if (button)
        button->click();
    else
        box.close();
}

} // namespace

MessageBoxes::Expected& MessageBoxes::Expected::WithIcon(QMessageBox::Icon icon) {
    m_icon = icon;
    return *this;
}

MessageBoxes::Expected& MessageBoxes::Expected::Then(std::function<void(QMessageBox&)> action) {
    m_action = std::move(action);
    return *this;
}

MessageBoxes::MessageBoxes() {
    qApp->installEventFilter(this);
}

MessageBoxes::~MessageBoxes() {
    Verify();
}

MessageBoxes::Expected& MessageBoxes::Expect(const QString& text, Answer answer) {
    Expected& expected = m_expected.emplace_back();
    expected.m_text = text;
    expected.m_answer = answer;
    return expected;
}

void MessageBoxes::Verify() {
    for (const Expected& expected : m_expected)
        ADD_FAILURE() << "expected message box did not come: " << expected.m_text.toStdString();
    m_expected.clear();
}

bool MessageBoxes::eventFilter(QObject* watched, QEvent* event) {
    auto* box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(watched) : nullptr;
    if (box) // answered once its own loop runs
        QTimer::singleShot(0, box, [this, box] { Take(*box); });
    return false;
}

void MessageBoxes::Take(QMessageBox& box) {
    if (m_expected.empty() || !Matches(m_expected.front().m_text, box.text())) {
        ADD_FAILURE() << "unexpected message box: " << box.text().toStdString()
                      << "\n  expected: " << (m_expected.empty() ? "none" : m_expected.front().m_text.toStdString());
        box.done(QMessageBox::Cancel);
        return;
    }
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    if (expected.m_icon >= 0) {
        EXPECT_EQ(box.icon(), expected.m_icon) << box.text().toStdString();
    }
    if (expected.m_action)
        expected.m_action(box);
    Press(box, expected.m_answer);
}

} // namespace krt550
