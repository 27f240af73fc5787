#include "host/link/link_thread.h"

#include <array>
#include <csignal>
#include <utility>

namespace krt550 {
namespace {

/// Signals are for the thread of the user interface; but a crash is where it happens.
void LeaveSignalsToOthers() {
    sigset_t signals;
    sigfillset(&signals);
    for (const int crash : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        sigdelset(&signals, crash);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

} // namespace

CLinkThread::CLinkThread(WirePlace place, std::set<quint16> described, CLine::Now now)
    : m_now(std::move(now)), m_ahead(RequestSizeFor(place), std::move(described)), m_beat(m_now()),
      m_line(std::move(place), m_now), m_thread([this] { Work(); }) {}

CLinkThread::~CLinkThread() {
    {
        const std::scoped_lock lock(m_mutex);
        m_ends = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

LineResult CLinkThread::Run(const Task& task, bool anyhow) {
    Beat();
    // The stop of a program that crashes in this thread.
    if (std::this_thread::get_id() == m_thread.get_id())
        return task(m_line);
    std::unique_lock lock(m_mutex);
    if (const auto down = anyhow ? std::nullopt : StillDown())
        return *down;
    LineResult result;
    const std::function<void()> work = [&] { result = task(m_line); };
    m_task = &work;
    m_wake.notify_one();
    m_done.wait(lock, [this] { return !m_task; });
    Beat();
    return result;
}

LineResult CLinkThread::RunChange(const Task& task, bool anyhow) {
    Announce({});
    return Run(task, anyhow);
}

std::optional<LineResult> CLinkThread::StillDown() const {
    return m_down && m_now() - m_used < std::chrono::milliseconds(kDownMs) ? m_down : std::nullopt;
}

void CLinkThread::Announce(std::span<const quint16> registers) {
    if (std::this_thread::get_id() == m_thread.get_id())
        return;
    const std::scoped_lock lock(m_mutex);
    m_ahead.Announce(registers);
    m_wake.notify_one();
}

std::optional<quint16> CLinkThread::TakeAnnounced(quint16 reg) {
    Beat();
    std::unique_lock lock(m_mutex);
    if (StillDown())
        return std::nullopt;
    m_awaitsAhead = true;
    m_wake.notify_one();
    m_done.wait(lock, [this, reg] { return !m_ahead.Expect(reg); });
    m_awaitsAhead = false;
    return m_ahead.HandOut(reg);
}

void CLinkThread::Work() {
    LeaveSignalsToOthers();
    std::unique_lock lock(m_mutex);
    while (!m_ends) {
        if (m_task) {
            Use(lock, *m_task);
            m_task = nullptr;
            m_done.notify_all();
        } else if (IsKeepAliveWanted() && m_now() >= NextKeepAlive()) {
            Use(lock, [this] { m_line.KeepAlive(); });
        } else if (!ReadAhead(lock)) {
            m_wake.wait_for(lock, NextKeepAlive() - m_now());
        }
    }
}

/// The user interface may go on meanwhile, up to what it wants of the line itself.
void CLinkThread::Use(std::unique_lock<std::mutex>& lock, const std::function<void()>& use) {
    lock.unlock();
    use();
    lock.lock();
    m_down = m_line.GetDown();
    m_used = m_now();
}

/// A drive in local control is to hear from the host, and a line that is down is tried until it is not.
bool CLinkThread::IsKeepAliveWanted() const {
    return (m_line.HoldsControl() || m_line.GetDown()) && m_now() - m_beat.load() < std::chrono::milliseconds(kHungMs);
}

/// Where none is wanted, when to look again.
CLine::Clock::time_point CLinkThread::NextKeepAlive() const {
    return (IsKeepAliveWanted() ? m_line.LastTried() : m_now()) + std::chrono::milliseconds(kKeepAliveMs);
}

/// Sends the next request of what was announced; false when there is none.
bool CLinkThread::ReadAhead(std::unique_lock<std::mutex>& lock) {
    if (m_line.GetDown())
        m_ahead.Fail();
    // In local control nothing that nobody waits for may be on its way when a stop comes.
    const bool isWanted = m_awaitsAhead || !m_line.HoldsControl();
    const auto range = isWanted ? m_ahead.Begin() : std::nullopt;
    m_done.notify_all();
    if (!range)
        return false;
    std::array<quint16, wire::kMostRead> words = {};
    WireReply reply;
    Use(lock,
        [&] { reply = m_line.TryRead(range->first, std::span(words).first(static_cast<std::size_t>(range->count))); });
    if (reply.IsDone())
        m_ahead.Take(words);
    else if (reply.outcome == WireOutcome::Refused && reply.exception == int(WireException::UnknownRegister))
        m_ahead.Split();
    else
        m_ahead.Fail();
    m_done.notify_all();
    return true;
}

} // namespace krt550
