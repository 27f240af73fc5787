#pragma once

#include "host/link/wire_place.h"

#include <QtGlobal>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace krt550 {

/// Registers that lie behind one another.
struct RegisterRange {
    quint16 first = 0;
    int count = 0;

    bool Contains(quint16 reg) const { return reg >= first && reg < first + count; }
};

/// How much goes into one request.
struct RequestSize {
    int most = 1; ///< registers
    int gap = 0;  ///< registers in between that nobody asked for and that cost less than another request
};

/// On a serial wire a request may take 50 ms, because a click waits so long; with TCP, where the way there and back
/// costs more than what is carried, it takes all that fits.
RequestSize RequestSizeFor(const WirePlace& place);

/// Puts registers into requests, in the order of the first one of each. A gap is read over when all of it `exists`.
std::vector<RegisterRange> PlanRequests(std::span<const quint16> registers, const RequestSize& size,
                                        const std::function<bool(quint16)>& exists);

/// What is read before it is asked for, because it was announced: each word is handed out once. Knows nothing of wire
/// and threads.
class CReadAhead {
public:
    /// `described` are the registers that the drive is said to have.
    CReadAhead(RequestSize size, std::set<quint16> described) : m_size(size), m_existing(std::move(described)) {}

    /// Takes the place of the former announcement; an empty one ends it.
    void Announce(std::span<const quint16> registers);
    /// What was read, and what is being read, is out of date.
    void Drop();

    /// The request to be sent next; its outcome is told to one of the three below.
    std::optional<RegisterRange> Begin();
    void Take(std::span<const quint16> words);
    /// The drive lacks one of the registers: reads them in smaller requests, and remembers.
    void Split();
    void Fail() { Drop(); }

    /// The register will be here, and is read before others from now on; false when nobody reads it.
    bool Expect(quint16 reg);
    std::optional<quint16> HandOut(quint16 reg);

private:
    std::vector<RegisterRange> Plan(std::span<const quint16> registers) const;

    RequestSize m_size;
    std::set<quint16> m_existing;
    std::vector<quint16> m_wanted; ///< announced, and not read yet
    std::deque<RegisterRange> m_requests;
    std::optional<RegisterRange> m_onItsWay;
    std::map<quint16, quint16> m_read; ///< and not handed out yet
};

} // namespace krt550
