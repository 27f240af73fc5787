#pragma once

#include <cstring>
#include <string_view>
#include <utility>

namespace krt550 {

/// Splits a text at a separator, piece by piece, without copying. Works on the bytes of a line: every separator in use
/// is ASCII, so it cannot occur inside a character of more than one byte.
class CTextTokenizer {
public:
    explicit CTextTokenizer(std::string_view text, char separator = ' ') : m_rest(text), m_separator(separator) {}

    /// True while a separator remains or the piece after the last one has not been taken.
    bool HasMoreTokens() const { return m_more; }

    /// The text up to the next separator, which is taken away too; after the last separator the rest, once; then empty.
    std::string_view NextToken() {
        const void* found = m_rest.empty() ? nullptr : std::memchr(m_rest.data(), m_separator, m_rest.size());
        if (!found) {
            m_more = false;
            return std::exchange(m_rest, {});
        }
        const auto length = static_cast<std::size_t>(static_cast<const char*>(found) - m_rest.data());
        const std::string_view token = m_rest.substr(0, length);
        m_rest.remove_prefix(length + 1);
        return token;
    }

    /// The next piece that is not empty; empty when there is none.
    std::string_view NextFilledToken() {
        std::string_view token;
        while (token.empty() && m_more)
            token = NextToken();
        return token;
    }

    /// What has not been taken yet.
    std::string_view Rest() const { return m_rest; }

private:
    std::string_view m_rest;
    char m_separator;
    bool m_more = true;
};

} // namespace krt550
