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

CLinkThread::CLinkThread(WirePlace place, std::set<quint16> described)
    : m_ahead(RequestSizeFor(place), std::move(described)), m_beat(Milliseconds()), m_line(std::move(place)),
      m_thread([this] { Work(); }) {}

CLinkThread::~CLinkThread() {
    {
        const std::scoped_lock lock(m_mutex);
        m_ends = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

qint64 CLinkThread::Milliseconds() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(CLine::Clock::now().time_since_epoch()).count();
}

void CLinkThread::Run(const std::function<void(CLine&)>& task) {
    Beat();
    // The stop of a program that crashes in this thread.
    if (std::this_thread::get_id() == m_thread.get_id())
        return task(m_line);
    std::unique_lock lock(m_mutex);
    m_task = &task;
    m_wake.notify_one();
    m_done.wait(lock, [this] { return !m_task; });
    Beat();
}

void CLinkThread::RunChange(const std::function<void(CLine&)>& task) {
    Announce({});
    Run(task);
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
    m_done.wait(lock, [this, reg] { return !m_ahead.Expect(reg); });
    return m_ahead.HandOut(reg);
}

void CLinkThread::Work() {
    LeaveSignalsToOthers();
    std::unique_lock lock(m_mutex);
    while (!m_ends) {
        if (m_task) {
            lock.unlock();
            (*m_task)(m_line);
            lock.lock();
            m_task = nullptr;
            m_done.notify_all();
        } else if (IsKeepAliveWanted() && CLine::Clock::now() >= NextKeepAlive()) {
            lock.unlock();
            m_line.KeepAlive();
            lock.lock();
        } else if (!ReadAhead(lock)) {
            m_wake.wait_until(lock, NextKeepAlive());
        }
    }
}

/// A drive in local control is to hear from the host, and a line that is down is tried until it is not.
bool CLinkThread::IsKeepAliveWanted() const {
    return (m_line.HoldsControl() || m_line.IsDown()) && Milliseconds() - m_beat < kHungMs;
}

/// Where none is wanted, when to look again.
CLine::Clock::time_point CLinkThread::NextKeepAlive() const {
    return (IsKeepAliveWanted() ? m_line.LastTried() : CLine::Clock::now()) + std::chrono::milliseconds(kKeepAliveMs);
}

/// Sends the next request of what was announced; false when there is none.
bool CLinkThread::ReadAhead(std::unique_lock<std::mutex>& lock) {
    if (m_line.IsDown())
        m_ahead.Fail();
    const auto range = m_ahead.Begin();
    m_done.notify_all();
    if (!range)
        return false;
    lock.unlock();
    std::array<quint16, wire::kMostRead> words = {};
    const WireReply reply =
        m_line.TryRead(range->first, std::span(words).first(static_cast<std::size_t>(range->count)));
    lock.lock();
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
