#include "wizard/texts/key_index.h"

#include <algorithm>

namespace krt550 {
namespace {

/// Spreads the upper half (a register) and keeps the lower half (its values) together.
std::size_t Spread(quint32 key) {
    return (key >> 16) * 0x9E3779B1U + ((key & 0xFFFF) ^ (key >> 20));
}

} // namespace

std::size_t CKeyIndex::SlotOf(quint32 key) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = Spread(key) & mask;
    while (m_slots[slot].number != kNone && m_slots[slot].key != key)
        slot = (slot + 1) & mask;
    return slot;
}

quint32 CKeyIndex::Find(quint32 key) const {
    return m_slots.empty() ? kNone : m_slots[SlotOf(key)].number;
}

std::pair<quint32, bool> CKeyIndex::Add(quint32 key) {
    if (2 * (m_count + std::size_t{1}) > m_slots.size())
        Grow();
    Slot& slot = m_slots[SlotOf(key)];
    if (slot.number != kNone)
        return {slot.number, false};
    slot = {key, m_count};
    return {m_count++, true};
}

void CKeyIndex::Grow() {
    constexpr std::size_t kSmallest = 16;
    const std::vector<Slot> former = std::exchange(m_slots, std::vector<Slot>(std::max(kSmallest, 2 * m_slots.size())));
    for (const Slot& slot : former)
        if (slot.number != kNone)
            m_slots[SlotOf(slot.key)] = slot;
}

} // namespace krt550
