#pragma once

#include <QObject>
#include <QString>

#include <vector>

class QMessageBox;

namespace krt550 {

enum class Answer { Ok, Cancel };

/// Answers the message boxes of a test, in the order in which they are expected. A box that nobody expected, one with
/// another text, and an expected one that never comes fail the test.
class MessageBoxes : public QObject {
public:
    MessageBoxes();
    ~MessageBoxes() override;

    void Expect(const QString& text, Answer answer = Answer::Ok);
    /// Fails the test for every box that is still expected, and forgets them.
    void ExpectNoMore();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Expectation {
        QString text;
        Answer answer;
    };
    void Take(QMessageBox& box);

    std::vector<Expectation> m_expected;
};

} // namespace krt550
