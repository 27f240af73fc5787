#pragma once

namespace krt550 {

enum class Answer { Ok, Cancel };

/// Answers the message boxes of a test as a person would, in the order in which they are expected. A box that nobody
/// expected fails the test (and is answered with Cancel, so that nothing hangs); so does an expected one that has not
/// come when the object goes away.
///
///     MessageBoxes boxes;
///     boxes.Expect("Start the motor?", Answer::Cancel).WithIcon(QMessageBox::Warning);
///     page.Start();
///
/// A text ending in "*" stands for any text that begins so.
class MessageBoxes : public QObject {
public:
    /// One box that is to come.
    class Expected {
    public:
        Expected& WithIcon(QMessageBox::Icon icon);
        /// Called while the box is on the screen, before it is answered.
        Expected& Then(std::function<void(QMessageBox&)> action);

    private:
        friend class MessageBoxes;
        QString m_text;
        Answer m_answer = Answer::Ok;
        int m_icon = -1;
        std::function<void(QMessageBox&)> m_action;
    };

    MessageBoxes();
    ~MessageBoxes() override;

    Expected& Expect(const QString& text, Answer answer = Answer::Ok);
    Expected& Expect(const char* text, Answer answer = Answer::Ok) { return Expect(QString::fromUtf8(text), answer); }

    /// Fails the test when an expected box has not come yet; none is expected afterwards.
    void Verify();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Take(QMessageBox& box);

    std::list<Expected> m_expected;
};

} // namespace krt550
