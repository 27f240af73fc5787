#pragma once

#include "drive/simulated_host_drive.h"

#include <QObject>
#include <QTimer>

#include <csignal>
#include <functional>

class QSocketNotifier;

namespace krt550 {

/// Turns Ctrl+C, a closed terminal and a request to terminate into calls from the event loop, one each.
class CEndingSignals {
public:
    explicit CEndingSignals(std::function<void()> come);
    ~CEndingSignals();
    CEndingSignals(const CEndingSignals&) = delete;
    CEndingSignals& operator=(const CEndingSignals&) = delete;

private:
    std::function<void()> m_come;
    sigset_t m_former;
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

/// Stops the drive's motor, whoever commands it, and waits until it stands.
class CEnding : public QObject {
    Q_OBJECT

public:
    static constexpr qint64 kLongestMs = 120'000;

    /// `stands` is called once: with false when the motor has not come to a standstill in time.
    CEnding(CSimulatedHostDrive& drive, std::function<void(bool)> stands);
    void Begin();
    bool HasBegun() const { return m_begun; }

private:
    void Look();

    CSimulatedHostDrive& m_drive;
    std::function<void(bool)> m_stands;
    QTimer m_look;
    qint64 m_left = kLongestMs;
    bool m_begun = false;
};

} // namespace krt550
