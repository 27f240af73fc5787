#pragma once

#include <QObject>
#include <QTimer>

class QSocketNotifier;

namespace krt550 {

/// Turns Ctrl-C and a request to terminate into what a careful person would do: close every window, so that the
/// wizard returns and leaves the drive safe. A second one ends the program at once.
class CInterrupt : public QObject {
    Q_OBJECT

public:
    CInterrupt();
    ~CInterrupt() override;
    /// True once a signal has come.
    bool HasCome() const { return m_hasCome; }

private:
    void OnSignal();

    QSocketNotifier* m_notifier = nullptr;
    QTimer m_closing;
    bool m_hasCome = false;
};

} // namespace krt550
