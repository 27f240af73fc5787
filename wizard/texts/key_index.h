#pragma once

#include <QtGlobal>

#include <utility>
#include <vector>

namespace krt550 {

/// Numbers keys in the order in which they first come: 0, 1, 2 ... One cache line for a look-up, which is what makes
/// loading large files cheap.
class CKeyIndex {
public:
    static constexpr quint32 kNone = 0xFFFFFFFF;

    /// Number of a key, kNone when it has not come.
    quint32 Find(quint32 key) const;

    /// Number of a key and whether it is new.
    std::pair<quint32, bool> Add(quint32 key);

private:
    struct Slot {
        quint32 key = 0;
        quint32 number = kNone;
    };
    std::size_t SlotOf(quint32 key) const;
    void Grow();

    std::vector<Slot> m_slots; ///< a power of two, at most half full
    quint32 m_count = 0;
};

} // namespace krt550
