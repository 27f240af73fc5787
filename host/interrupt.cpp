#include "host/interrupt.h"

#include "host/play/window_closer.h"

#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace krt550 {
namespace {

int g_pipe[2] = {-1, -1};

// A signal handler may do next to nothing: it wakes the event loop, which does the rest.
void WakeEventLoop(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(g_pipe[1], &byte, 1);
}

void Install(void (*handler)(int), int flags) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    for (const int signal : {SIGINT, SIGTERM})
        sigaction(signal, &action, nullptr);
}

} // namespace

CInterrupt::CInterrupt() {
    if (pipe(g_pipe) != 0)
        return;
    m_notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &CInterrupt::OnSignal);
    connect(&m_closing, &QTimer::timeout, this, [] { CloseNextWindow(); });
    Install(WakeEventLoop, int(SA_RESETHAND) | SA_RESTART);
}

CInterrupt::~CInterrupt() {
    if (!m_notifier)
        return;
    Install(SIG_DFL, 0);
    for (const int end : g_pipe)
        close(end);
}

void CInterrupt::OnSignal() {
    m_notifier->setEnabled(false);
    m_hasCome = true;
    constexpr int kCloseAgainMs = 10;
    m_closing.start(kCloseAgainMs);
}

} // namespace krt550
