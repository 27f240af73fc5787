#pragma once

#include <QtGlobal>

#include <utility>
#include <vector>

namespace krt550 {

/// Numbers keys in the order in which they first come: 0, 1, 2 ... Small, because loading a large file waits for little
/// but the memory of its indexes.
class CKeyIndex {
public:
    static constexpr quint32 kNone = 0xFFFFFFFF;

    /// Number of a key, kNone when it has not come.
    quint32 Find(quint32 key) const;

    /// Number of a key and whether it is new.
    std::pair<quint32, bool> Add(quint32 key);

    /// The keys by number.
    const std::vector<quint32>& Keys() const { return m_keys; }

private:
    std::size_t SlotOf(quint32 key) const;
    void Grow();

    std::vector<quint32> m_slots; ///< number + 1, 0 for a free slot; a power of two, at most half full
    std::vector<quint32> m_keys;
    quint32 m_last = 0; ///< number of the key added last
};

} // namespace krt550
