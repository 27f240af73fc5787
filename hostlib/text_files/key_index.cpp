#include "hostlib/text_files/key_index.h"

#include <algorithm>

namespace krt550 {
namespace {

/// Spreads the upper half (a register) evenly and keeps the lower half (its values) together.
std::size_t Spread(quint32 key) {
    constexpr quint64 kGolden = 0x9E3779B97F4A7C15; // 2^64 divided by the golden ratio
    return static_cast<std::size_t>(((key >> 16) * kGolden) >> 32) + (key & 0xFFFF);
}

} // namespace

std::size_t CKeyIndex::SlotOf(quint32 key) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = Spread(key) & mask;
    while (m_slots[slot] != 0 && m_keys[m_slots[slot] - 1] != key)
        slot = (slot + 1) & mask;
    return slot;
}

quint32 CKeyIndex::Find(quint32 key) const {
    return m_slots.empty() ? kNone : m_slots[SlotOf(key)] - 1;
}

std::pair<quint32, bool> CKeyIndex::Add(quint32 key) {
    // Lines of one register stand together, and files repeat their keys in the same order.
    for (const quint32 guess : {m_last, m_last + 1})
        if (guess < m_keys.size() && m_keys[guess] == key)
            return {m_last = guess, false};
    if (2 * (m_keys.size() + 1) > m_slots.size())
        Grow();
    quint32& slot = m_slots[SlotOf(key)];
    const bool isNew = slot == 0;
    if (isNew) {
        m_keys.push_back(key);
        slot = static_cast<quint32>(m_keys.size());
    }
    m_last = slot - 1;
    return {m_last, isNew};
}

void CKeyIndex::Grow() {
    constexpr std::size_t kSmallest = 16;
    const std::size_t size = std::max(kSmallest, 2 * m_slots.size());
    m_slots.clear();
    m_slots.resize(size);
    const std::size_t mask = size - 1;
    for (quint32 number = 0; number < m_keys.size(); ++number) {
        std::size_t slot = Spread(m_keys[number]) & mask;
        while (m_slots[slot] != 0)
            slot = (slot + 1) & mask;
        m_slots[slot] = number + 1;
    }
}

} // namespace krt550
