#include "host/commands/interruption.h"

#include <atomic>
#include <csignal>

namespace krt550 {
namespace {

constexpr int kInterrupting[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

std::atomic<bool> g_hasCome = false;

void Handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

CInterruption::CInterruption() {
    g_hasCome = false;
    for (const int signal : kInterrupting)
        Handle(signal, [](int) { g_hasCome = true; });
    Handle(SIGPIPE, SIG_IGN);
}

CInterruption::~CInterruption() {
    for (const int signal : kInterrupting)
        Handle(signal, SIG_DFL);
    Handle(SIGPIPE, SIG_DFL);
}

bool CInterruption::HasCome() const {
    return g_hasCome;
}

} // namespace krt550
