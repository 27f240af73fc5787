#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace krt550 {

/// Turns the signals that would end the program into a call from the event loop: Ctrl+C, Ctrl+\, a closed terminal, a
/// request to terminate. None of them ends the program by itself any more; each one after the first says on stderr what
/// the program waits for. A reader that has gone or a file that may not grow any more fails the write and no more; a
/// crash sends the stop before it takes its course.
class CInterrupt : public QObject {
    Q_OBJECT

public:
    explicit CInterrupt(std::function<void()> onSignal);
    ~CInterrupt() override;
    /// True once a signal has come.
    bool HasCome() const;

private:
    std::function<void()> m_onSignal;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace krt550
