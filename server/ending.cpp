#include "server/ending.h"

#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

namespace krt550 {

CEndingSignals::CEndingSignals(std::function<void()> come) : m_come(std::move(come)) {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
        sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, &m_former);
    m_descriptor = signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK);
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        signalfd_siginfo signal;
        while (read(m_descriptor, &signal, sizeof signal) == sizeof signal)
            m_come();
    });
}

CEndingSignals::~CEndingSignals() {
    m_notifier.reset();
    close(m_descriptor);
    sigprocmask(SIG_SETMASK, &m_former, nullptr);
}

CEnding::CEnding(CSimulatedHostDrive& drive, std::function<void(bool)> stands)
    : m_drive(drive), m_stands(std::move(stands)) {
    constexpr int kLookMs = 20;
    m_look.setInterval(kLookMs);
    connect(&m_look, &QTimer::timeout, this, &CEnding::Look);
}

void CEnding::Begin() {
    m_begun = true;
    CSimulatedDrive& drive = m_drive.GetDrive();
    drive.SetToolSpeaks(true);
    drive.Poll();
    if (drive.GetControlPlace() == ControlPlace::Local)
        drive.StopMotor();
    else
        drive.SetEmergencyStop(true);
    m_look.start();
    Look();
}

void CEnding::Look() {
    CSimulatedDrive& drive = m_drive.GetDrive();
    drive.Poll();
    m_left -= m_look.interval();
    if (!drive.IsStopped() && m_left > 0)
        return;
    m_look.stop();
    if (drive.GetControlPlace() == ControlPlace::Local)
        drive.OpenContactor();
    m_stands(drive.IsStopped());
}

} // namespace krt550
