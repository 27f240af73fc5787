#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace krt550 {

/// Keeps texts in large blocks for as long as it lives: one allocation for thousands of texts.
class CTextArena {
public:
    /// Keeps a copy of a text.
    std::string_view Keep(std::string_view text) {
        if (text.size() > m_free)
            AddBlock(text.size());
        char* const kept = m_next;
        if (!text.empty())
            std::memcpy(kept, text.data(), text.size());
        m_next += text.size();
        m_free -= text.size();
        return {kept, text.size()};
    }

    /// Replaces a text kept before, in its place when the new one fits.
    void Replace(std::string_view& kept, std::string_view text) {
        if (text.size() > kept.size()) {
            kept = Keep(text);
            return;
        }
        // The blocks are the arena's own, so their characters may be written.
        if (!text.empty())
            std::memcpy(const_cast<char*>(kept.data()), text.data(), text.size());
        kept = kept.substr(0, text.size());
    }

private:
    void AddBlock(std::size_t atLeast) {
        constexpr std::size_t kSmallest = 16 * 1024;
        constexpr std::size_t kLargest = 1024 * 1024;
        m_free =
            std::max(atLeast, std::clamp(kSmallest << std::min<std::size_t>(m_blocks.size(), 10), kSmallest, kLargest));
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(m_free));
        m_next = m_blocks.back().get();
    }

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_next = nullptr;
    std::size_t m_free = 0;
};

} // namespace krt550
