#pragma once

#include <QString>
#include <QtGlobal>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <span>
#include <thread>
#include <vector>

namespace krt550 {

/// What a relay does to the frames that it carries: shares of 0 to 1, by a fixed seed.
struct RelayFaults {
    double dropped = 0;
    double doubled = 0;
    double truncated = 0; ///< what has gone out of a TCP frame makes everything behind it unreadable
    double damaged = 0;   ///< serial only: a bit is turned over
    double swapped = 0;   ///< with the next one
    double late = 0;      ///< by up to lateMs
    int lateMs = 0;
    unsigned seed = 1;
};

enum class Cut {
    Closed, ///< both ends see it; and no new connection comes about
    Silent  ///< nobody sees anything: what is sent gets nowhere
};

/// Carries Modbus frames between host and drive, on a thread of its own, and can make a bad line of itself.
class CWireRelay {
public:
    /// On TCP, to a port of this machine.
    explicit CWireRelay(quint16 port);
    /// On two serial lines of `baud` (0: no time is taken): the host's, and the drive's, which is `DriveDevice`.
    struct Serial {
        int baud = 0;
    };
    explicit CWireRelay(Serial serial);
    ~CWireRelay();
    CWireRelay(const CWireRelay&) = delete;
    CWireRelay& operator=(const CWireRelay&) = delete;

    /// As --drive takes it.
    QString DriveName() const { return m_driveName; }
    QString DriveDevice() const { return m_driveDevice; }

    void SetRoundTrip(double milliseconds);
    void SetFaults(const RelayFaults& faults);
    /// The wire is cut at the n-th frame of either direction from now on; 1 is the next one.
    void CutAt(int frame, Cut cut);
    void Mend();
    bool IsCut() const { return m_isCut; }
    /// Frames of both directions since the beginning.
    int GetFrames() const { return m_frames; }
    /// Requests since the beginning.
    int GetRequests() const { return m_requests; }
    /// Of these, the ones behind which the next came before an answer: the host has lost patience.
    int GetUnanswered() const { return m_unanswered; }
    /// Waits, without an event loop, until so many requests have come since the beginning; false when they have not
    /// within that time.
    bool AwaitRequests(int count, std::chrono::milliseconds atMost);
    /// Calls `watch` with each frame, from its function code on, on the relay's thread; what it answers false to gets
    /// nowhere.
    using Watcher = std::function<bool(bool isRequest, std::span<const quint8> pdu)>;
    void Watch(Watcher watch);

private:
    using Clock = std::chrono::steady_clock;
    using Bytes = std::vector<quint8>;

    /// A connection, or a serial line; end 0 is the host's.
    struct Pair {
        int ends[2] = {-1, -1};
        Bytes coming[2];
        Bytes held[2];
        Clock::time_point free[2]; ///< when the line has carried what was given to it
        bool open = true;
        bool awaitsAnswer = false;
        bool finished = false; ///< one of its ends has been closed; what is on its way still gets there
    };
    struct Delivery {
        std::shared_ptr<Pair> pair;
        int end;     ///< that gets it
        Bytes bytes; ///< empty: that end is closed
    };

    void Begin();
    void Work();
    void Accept();
    void Receive(const std::shared_ptr<Pair>& pair, int from);
    void TakeFrames(const std::shared_ptr<Pair>& pair, int from);
    void Carry(const std::shared_ptr<Pair>& pair, int from, Bytes frame);
    void Send(const std::shared_ptr<Pair>& pair, int from, Bytes frame);
    void Deliver();
    void Close(Pair& pair);
    bool Happens(double share) { return share > 0 && std::uniform_real_distribution<>(0, 1)(m_random) < share; }

    const quint16 m_port = 0; ///< 0: serial
    const int m_baud = 0;
    QString m_driveName;
    QString m_driveDevice;
    int m_listener = -1;
    int m_wake[2] = {-1, -1};
    std::vector<int> m_slaves; ///< kept open, so that a line outlives who opens it
    std::mutex m_mutex;
    std::condition_variable m_frameCame;
    std::vector<std::shared_ptr<Pair>> m_pairs;
    std::multimap<Clock::time_point, Delivery> m_deliveries;
    Watcher m_watch;
    RelayFaults m_faults;
    std::mt19937 m_random{1};
    std::chrono::duration<double, std::milli> m_oneWay{0};
    int m_framesToCut = 0; ///< 0: none
    Cut m_cut = Cut::Closed;
    std::atomic<bool> m_isCut = false;
    std::atomic<int> m_frames = 0;
    std::atomic<int> m_requests = 0;
    std::atomic<int> m_unanswered = 0;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace krt550
