#include "host/interrupt.h"

#include "host/last_stop.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace krt550 {
namespace {

constexpr int kEnding[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU};
constexpr int kFailingWrites[] = {SIGPIPE, SIGXFSZ};
constexpr int kCrashes[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr unsigned kCrashSeconds = 5; ///< for the stop of a crashed program, which may hang

int g_pipe[2] = {-1, -1};
std::atomic<int> g_signals = 0;
struct sigaction g_crashActions[NSIG];

// A signal handler may do next to nothing: it wakes the event loop, which does the rest.
void OnSignal(int) {
    const int error = errno;
    if (g_signals++ == 0) {
        const char byte = 1;
        [[maybe_unused]] const ssize_t written = write(g_pipe[1], &byte, 1);
    } else {
        const char* text = CLastStop::WaitsFor();
        if (!text)
            text = "the stop is sent first; waiting until the windows are closed";
        for (const char* part : {"krt550tool: ", text, "\n"})
            [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, part, std::strlen(part));
    }
    errno = error;
}

// Allowed here is even less, and what is broken nobody knows: but a motor that turns is worth the attempt.
void OnCrash(int signal, siginfo_t* information, void*) {
    for (const int crash : kCrashes)
        sigaction(crash, &g_crashActions[crash], nullptr);
    alarm(kCrashSeconds);
    CLastStop::StopFromCrash();
    // What crashed here does so again, and reaches whoever was in charge before; what was sent has to be sent again.
    if (information->si_code <= 0)
        raise(signal);
}

void Install(int signal, void (*handler)(int), int flags) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigaction(signal, &action, nullptr);
}

void InstallForCrash(int signal) {
    struct sigaction action {};
    action.sa_sigaction = OnCrash;
    action.sa_flags = SA_SIGINFO;
    sigaction(signal, &action, &g_crashActions[signal]);
}

} // namespace

CInterrupt::CInterrupt(std::function<void()> onSignal) : m_onSignal(std::move(onSignal)) {
    for (const int signal : kFailingWrites)
        Install(signal, SIG_IGN, 0);
    if (pipe(g_pipe) != 0)
        return;
    g_signals = 0;
    m_notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        m_onSignal();
    });
    for (const int signal : kEnding)
        Install(signal, OnSignal, SA_RESTART);
    for (const int signal : kCrashes)
        InstallForCrash(signal);
}

CInterrupt::~CInterrupt() {
    if (!m_notifier)
        return;
    for (const int signal : kEnding)
        Install(signal, SIG_DFL, 0);
    for (const int signal : kCrashes)
        sigaction(signal, &g_crashActions[signal], nullptr);
    for (const int end : g_pipe)
        close(end);
}

bool CInterrupt::HasCome() const {
    return g_signals > 0;
}

} // namespace krt550
