#include "tests/support/wire_relay.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <pty.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

namespace krt550 {
namespace {

constexpr std::size_t kTcpHeader = 7;
constexpr std::size_t kTcpLengthEnd = 6;
constexpr int kBitsOfByte = 11;

sockaddr_in Loopback(quint16 port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

quint16 PortOf(int socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

int Listen() {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const sockaddr_in address = Loopback(0);
    bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    listen(listener, 8);
    return listener;
}

void SendAtOnce(int socket) {
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

} // namespace

CWireRelay::CWireRelay(quint16 port) : m_port(port), m_listener(Listen()) {
    m_driveName = QStringLiteral("modbus-tcp:127.0.0.1:%1").arg(PortOf(m_listener));
    Begin();
}

CWireRelay::CWireRelay(Serial serial) : m_baud(serial.baud) {
    const auto pair = std::make_shared<Pair>();
    std::array<std::array<char, 128>, 2> names{};
    for (const std::size_t end : {0U, 1U}) {
        termios raw{};
        cfmakeraw(&raw);
        int slave = -1;
        openpty(&pair->ends[end], &slave, names[end].data(), &raw, nullptr);
        fcntl(pair->ends[end], F_SETFL, O_NONBLOCK);
        m_slaves.push_back(slave);
    }
    m_pairs.push_back(pair);
    m_driveName = QStringLiteral("modbus-rtu:%1,19200,8E1").arg(QLatin1String(names[0].data()));
    m_driveDevice = QLatin1String(names[1].data());
    Begin();
}

void CWireRelay::Begin() {
    if (pipe2(m_wake, O_CLOEXEC | O_NONBLOCK) == 0)
        m_thread = std::thread([this] { Work(); });
}

CWireRelay::~CWireRelay() {
    m_ends = true;
    close(m_wake[1]);
    if (m_thread.joinable())
        m_thread.join();
    for (const auto& pair : m_pairs)
        Close(*pair);
    for (const int slave : m_slaves)
        close(slave);
    close(m_wake[0]);
    if (m_listener >= 0)
        close(m_listener);
}

void CWireRelay::SetRoundTrip(double milliseconds) {
    const std::scoped_lock lock(m_mutex);
    m_oneWay = std::chrono::duration<double, std::milli>(milliseconds / 2);
}

void CWireRelay::SetFaults(const RelayFaults& faults) {
    const std::scoped_lock lock(m_mutex);
    m_faults = faults;
    m_random.seed(faults.seed);
}

bool CWireRelay::AwaitRequests(int count, std::chrono::milliseconds atMost) {
    std::unique_lock lock(m_mutex);
    return m_frameCame.wait_for(lock, atMost, [this, count] { return m_requests >= count; });
}

void CWireRelay::Watch(Watcher watch) {
    const std::scoped_lock lock(m_mutex);
    m_watch = std::move(watch);
}

void CWireRelay::CutAt(int frame, Cut cut) {
    const std::scoped_lock lock(m_mutex);
    m_framesToCut = frame;
    m_cut = cut;
}

void CWireRelay::Mend() {
    const std::scoped_lock lock(m_mutex);
    m_framesToCut = 0;
    m_isCut = false;
}

void CWireRelay::Close(Pair& pair) {
    for (int& end : pair.ends)
        if (end >= 0)
            close(std::exchange(end, -1));
    pair.open = false;
}

void CWireRelay::Work() {
    while (!m_ends) {
        std::vector<pollfd> waited{{m_wake[0], POLLIN, 0}};
        std::vector<std::pair<std::shared_ptr<Pair>, int>> who{{nullptr, 0}};
        timespec patience{1, 0};
        {
            const std::scoped_lock lock(m_mutex);
            Deliver();
            std::erase_if(m_pairs, [](const auto& pair) { return !pair->open; });
            if (m_listener >= 0) {
                waited.push_back({m_listener, POLLIN, 0});
                who.emplace_back(nullptr, 0);
            }
            for (const auto& pair : m_pairs)
                for (const int end : {0, 1}) {
                    if (pair->finished)
                        continue;
                    waited.push_back({pair->ends[end], POLLIN, 0});
                    who.emplace_back(pair, end);
                }
            if (!m_deliveries.empty()) {
                const auto left =
                    std::chrono::duration_cast<std::chrono::nanoseconds>(m_deliveries.begin()->first - Clock::now());
                const auto nanoseconds = std::clamp<qint64>(left.count(), 0, 999'999'999);
                patience = {0, static_cast<long>(nanoseconds)};
            }
        }
        ppoll(waited.data(), waited.size(), &patience, nullptr);
        const std::scoped_lock lock(m_mutex);
        for (std::size_t i = 1; i < waited.size(); ++i) {
            if (waited[i].revents == 0)
                continue;
            if (who[i].first)
                Receive(who[i].first, who[i].second);
            else
                Accept();
        }
    }
}

void CWireRelay::Accept() {
    const int host = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (host < 0)
        return;
    const int drive = m_isCut ? -1 : socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = Loopback(m_port);
    if (drive < 0 || connect(drive, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(host);
        if (drive >= 0)
            close(drive);
        return;
    }
    fcntl(drive, F_SETFL, O_NONBLOCK);
    SendAtOnce(host);
    SendAtOnce(drive);
    const auto pair = std::make_shared<Pair>();
    pair->ends[0] = host;
    pair->ends[1] = drive;
    m_pairs.push_back(pair);
}

void CWireRelay::Receive(const std::shared_ptr<Pair>& pair, int from) {
    std::array<quint8, 1024> bytes;
    const ssize_t count = pair->open ? read(pair->ends[from], bytes.data(), bytes.size()) : 0;
    if (count > 0) {
        pair->coming[from].insert(pair->coming[from].end(), bytes.begin(), bytes.begin() + count);
        TakeFrames(pair, from);
    } else if (m_port != 0 && pair->open) {
        pair->finished = true;
        Send(pair, from, {});
    }
}

void CWireRelay::TakeFrames(const std::shared_ptr<Pair>& pair, int from) {
    Bytes& coming = pair->coming[from];
    while (!coming.empty() && pair->open) {
        std::size_t size = coming.size();
        if (m_port != 0) {
            if (size < kTcpLengthEnd)
                return;
            size = kTcpLengthEnd + static_cast<std::size_t>(coming[4] << 8 | coming[5]);
            if (coming.size() < size)
                return;
        }
        Bytes frame(coming.begin(), coming.begin() + static_cast<std::ptrdiff_t>(size));
        coming.erase(coming.begin(), coming.begin() + static_cast<std::ptrdiff_t>(size));
        ++m_frames;
        m_requests += from == 0 ? 1 : 0;
        m_unanswered += from == 0 && pair->awaitsAnswer ? 1 : 0;
        pair->awaitsAnswer = from == 0;
        m_frameCame.notify_all();
        const std::size_t header = m_port != 0 ? kTcpHeader : 1;
        const bool passes = !m_watch || m_watch(from == 0, std::span(frame).subspan(std::min(frame.size(), header)));
        if (m_framesToCut > 0 && --m_framesToCut == 0) {
            m_isCut = true;
            if (m_cut == Cut::Closed && m_port != 0)
                Close(*pair);
        }
        if (passes && !m_isCut)
            Carry(pair, from, std::move(frame));
    }
}

void CWireRelay::Carry(const std::shared_ptr<Pair>& pair, int from, Bytes frame) {
    Bytes& held = pair->held[from];
    if (Happens(m_faults.dropped))
        return;
    if (Happens(m_faults.truncated))
        frame.resize(1 + m_random() % frame.size());
    if (m_port == 0 && Happens(m_faults.damaged))
        frame[m_random() % frame.size()] ^= static_cast<quint8>(1U << m_random() % 8);
    if (held.empty() && Happens(m_faults.swapped)) {
        held = std::move(frame);
        return;
    }
    if (Happens(m_faults.doubled))
        Send(pair, from, frame);
    Send(pair, from, std::move(frame));
    if (!held.empty())
        Send(pair, from, std::exchange(held, {}));
}

void CWireRelay::Send(const std::shared_ptr<Pair>& pair, int from, Bytes frame) {
    const auto bits = static_cast<double>(frame.size() * kBitsOfByte);
    std::chrono::duration<double, std::milli> takes = m_oneWay;
    if (m_baud > 0)
        takes += std::chrono::duration<double, std::milli>(1000 * bits / m_baud);
    if (Happens(m_faults.late))
        takes += std::chrono::milliseconds(m_random() % static_cast<unsigned>(m_faults.lateMs));
    // A serial line carries one byte after the other; with TCP what is late holds up what is behind it.
    const Clock::time_point begin = m_baud > 0 ? std::max(pair->free[from], Clock::now()) : Clock::now();
    pair->free[from] = std::max(pair->free[from], begin + std::chrono::duration_cast<Clock::duration>(takes));
    m_deliveries.emplace(pair->free[from], Delivery{pair, 1 - from, std::move(frame)});
}

void CWireRelay::Deliver() {
    while (!m_deliveries.empty() && m_deliveries.begin()->first <= Clock::now()) {
        const Delivery delivery = std::move(m_deliveries.begin()->second);
        m_deliveries.erase(m_deliveries.begin());
        const int end = delivery.pair->ends[delivery.end];
        if (end < 0)
            continue;
        if (delivery.bytes.empty())
            Close(*delivery.pair);
        else [[maybe_unused]]
            const ssize_t written = write(end, delivery.bytes.data(), delivery.bytes.size());
    }
}

} // namespace krt550
