#include "host/link/read_ahead.h"

#include "modbus/register_map.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr double kLongestRequest = 50; ///< on a serial wire [ms]
constexpr double kTurnaround = 4;      ///< the two silences and the drive's own time [ms]
constexpr int kFrameBytes = 8 + 5;     ///< of request and answer, without the words

} // namespace

RequestSize RequestSizeFor(const WirePlace& place) {
    if (!place.isSerial)
        return {wire::kMostRead, wire::kMostRead};
    const double overhead = place.TimeOf(kFrameBytes) + kTurnaround;
    const double word = place.TimeOf(2);
    return {std::clamp(static_cast<int>((kLongestRequest - overhead) / word), 1, int{wire::kMostRead}),
            static_cast<int>(overhead / word)};
}

std::vector<RegisterRange> PlanRequests(std::span<const quint16> registers, const RequestSize& size,
                                        const std::function<bool(quint16)>& exists) {
    std::vector<quint16> sorted(registers.begin(), registers.end());
    std::ranges::sort(sorted);
    std::vector<RegisterRange> requests;
    for (const quint16 reg : sorted) {
        RegisterRange* last = requests.empty() ? nullptr : &requests.back();
        if (last && last->Contains(reg))
            continue;
        const int end = last ? last->first + last->count : 0;
        bool fits = last && reg - end <= size.gap && reg - last->first < size.most;
        for (int between = end; fits && between < reg; ++between)
            fits = exists(static_cast<quint16>(between));
        if (fits)
            last->count = reg - last->first + 1;
        else
            requests.push_back({reg, 1});
    }
    const auto firstWanted = [&registers](const RegisterRange& range) {
        return std::ranges::find_if(registers, [&range](quint16 reg) { return range.Contains(reg); });
    };
    std::ranges::stable_sort(requests, {}, firstWanted);
    return requests;
}

void CReadAhead::Announce(std::span<const quint16> registers) {
    Drop();
    m_wanted.assign(registers.begin(), registers.end());
    std::erase_if(m_wanted, [this](quint16 reg) { return !m_existing.contains(reg); });
    const auto requests = Plan(m_wanted);
    m_requests.assign(requests.begin(), requests.end());
}

std::vector<RegisterRange> CReadAhead::Plan(std::span<const quint16> registers) const {
    return PlanRequests(registers, m_size, [this](quint16 reg) { return m_existing.contains(reg); });
}

void CReadAhead::Drop() {
    m_wanted.clear();
    m_requests.clear();
    m_onItsWay.reset();
    m_read.clear();
}

std::optional<RegisterRange> CReadAhead::Begin() {
    if (m_requests.empty())
        return std::nullopt;
    m_onItsWay = m_requests.front();
    m_requests.pop_front();
    return m_onItsWay;
}

void CReadAhead::Take(std::span<const quint16> words) {
    if (!m_onItsWay)
        return;
    for (const quint16 reg : m_wanted)
        if (m_onItsWay->Contains(reg))
            m_read[reg] = words[reg - m_onItsWay->first];
    m_onItsWay.reset();
}

void CReadAhead::Split() {
    if (!m_onItsWay)
        return;
    const RegisterRange refused = *m_onItsWay;
    m_onItsWay.reset();
    std::vector<quint16> wanted;
    for (int reg = refused.first; reg < refused.first + refused.count; ++reg) {
        if (std::ranges::find(m_wanted, reg) != m_wanted.end())
            wanted.push_back(static_cast<quint16>(reg));
        else
            m_existing.erase(static_cast<quint16>(reg));
    }
    if (wanted.size() == 1 && refused.count == 1) {
        m_existing.erase(wanted.front());
        return;
    }
    std::vector<RegisterRange> smaller = Plan(wanted);
    if (smaller.size() == 1) {
        const int half = smaller.front().count / 2;
        const auto second = static_cast<quint16>(smaller.front().first + half);
        smaller = {{smaller.front().first, half}, {second, smaller.front().count - half}};
        std::erase_if(smaller, [](const RegisterRange& range) { return range.count == 0; });
    }
    m_requests.insert(m_requests.begin(), smaller.begin(), smaller.end());
}

bool CReadAhead::Expect(quint16 reg) {
    if (m_onItsWay && m_onItsWay->Contains(reg))
        return std::ranges::find(m_wanted, reg) != m_wanted.end();
    const auto contains = [reg](const RegisterRange& range) { return range.Contains(reg); };
    const auto request = std::ranges::find_if(m_requests, contains);
    if (request == m_requests.end() || std::ranges::find(m_wanted, reg) == m_wanted.end())
        return false;
    std::rotate(m_requests.begin(), request, request + 1);
    return true;
}

std::optional<quint16> CReadAhead::HandOut(quint16 reg) {
    const auto read = m_read.extract(reg);
    return read ? std::optional(read.mapped()) : std::nullopt;
}

} // namespace krt550
