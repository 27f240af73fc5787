#include "wizard/wiring/pending_connections.h"

#include <algorithm>

namespace krt550 {

void CPendingConnections::Pick(int input, const ConnectionChange& change) {
    const CConnectionTable& table = ConnectionsOf(m_kind);
    const auto isPicked = [&](int entry) {
        return std::ranges::any_of(change.connect,
                                   [&](int picked) { return table[picked].selector == table[entry].selector; });
    };
    for (ConnectionChange& other : m_changes)
        std::erase_if(other.connect, isPicked);
    m_changes[static_cast<std::size_t>(input - 1)] = change;
}

bool CPendingConnections::Write(CParameterGroup* root) const {
    bool written = true;
    for (int input = 1; input <= static_cast<int>(m_changes.size()); ++input)
        written = WriteConnections(root, m_kind, input, Of(input)) && written;
    return written;
}

} // namespace krt550
