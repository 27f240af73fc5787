#pragma once

#include "host/link/line.h"
#include "host/link/read_ahead.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace krt550 {

/// The thread that owns the line to the drive. The thread of the user interface hands it one task at a time and waits;
/// between tasks it keeps a drive in local control hearing from the host, and reads what was announced. A task waits
/// for the one request that is on its way at most.
///
/// The drive is kept hearing only while somebody is at the user interface's end: Beat says so. When the last beat is
/// older than kHungMs the window hangs, nobody can stop the motor from it, and the drive is left to its own supervision
/// (30.29, 5 s as delivered), which then stops it.
class CLinkThread {
public:
    /// Between two requests of a drive in local control [ms]: a few of them may be lost within any sensible 30.29.
    static constexpr int kKeepAliveMs = 200;
    /// Silence of the user interface from which on it hangs [ms]. Its longest work without an event loop, a page that
    /// is built on a busy machine, takes a tenth of it; and what it is given comes on top of 30.29 until the motor is
    /// stopped.
    static constexpr int kHungMs = 2000;
    /// So long a failure tells of the line [ms]: longer than its next try takes.
    static constexpr int kDownMs = 1000;

    /// `now` is the time that all of these go by; it is asked by both threads.
    CLinkThread(WirePlace place, std::set<quint16> described, CLine::Now now = CLine::Clock::now);
    ~CLinkThread();
    CLinkThread(const CLinkThread&) = delete;
    CLinkThread& operator=(const CLinkThread&) = delete;

    // For the thread of the user interface.
    using Task = std::function<LineResult(CLine&)>;
    /// Has `task` done on the line and waits for its end. On a line that is down it fails at once, so that a page of
    /// forty parameters does not wait forty times; unless it is to be tried `anyhow`.
    LineResult Run(const Task& task, bool anyhow = false);
    /// The same for what changes something in the drive: what was read before it is out of date.
    LineResult RunChange(const Task& task, bool anyhow = false);
    void Announce(std::span<const quint16> registers);
    /// The word of an announced register, once; waits for it when it is to be read. Nothing when nobody reads it, or
    /// the line is down.
    std::optional<quint16> TakeAnnounced(quint16 reg);
    /// Somebody is there: the event loop runs, or the drive is being called.
    void Beat() { m_beat = m_now(); }

private:
    void Work();
    bool IsKeepAliveWanted() const;
    CLine::Clock::time_point NextKeepAlive() const;
    void Use(std::unique_lock<std::mutex>& lock, const std::function<void()>& use);
    bool ReadAhead(std::unique_lock<std::mutex>& lock);
    /// The failure of a line that is down, and that was tried a moment ago.
    std::optional<LineResult> StillDown() const;

    CLine::Now m_now;
    std::mutex m_mutex;
    std::condition_variable m_wake; ///< for the link's thread
    std::condition_variable m_done; ///< for the user interface's
    const std::function<void()>* m_task = nullptr;
    std::optional<LineResult> m_down; ///< why the line was down when it was last used
    CLine::Clock::time_point m_used;  ///< when that was
    CReadAhead m_ahead;
    bool m_awaitsAhead = false; ///< the user interface waits for some of it
    bool m_ends = false;
    std::atomic<CLine::Clock::time_point> m_beat;
    CLine m_line; ///< of the thread
    std::thread m_thread;
};

} // namespace krt550
