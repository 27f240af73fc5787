#include "hostlib/text_files/line_reader.h"

#include <algorithm>
#include <cstring>

namespace krt550 {
namespace {

constexpr std::size_t kChunk = 64 * 1024;

std::string_view WithoutCarriageReturn(std::string_view line) {
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

} // namespace

CLineReader::CLineReader(QIODevice& device) : m_device(device) {}

bool CLineReader::NextLine(std::string_view& line) {
    if (!m_started)
        Start();
    for (;;) {
        const char* const data = m_buffer.data();
        const void* found = m_scanned < m_end ? std::memchr(data + m_scanned, '\n', m_end - m_scanned) : nullptr;
        if (found) {
            const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - data);
            line = WithoutCarriageReturn({data + m_begin, at - m_begin});
            m_begin = m_scanned = at + 1;
            return true;
        }
        m_scanned = m_end;
        if (!m_atEnd && ReadOn())
            continue;
        line = {m_buffer.data() + m_begin, m_end - m_begin};
        m_begin = m_end;
        return !m_failed && !line.empty();
    }
}

/// Looks at the mark at the start of the file.
void CLineReader::Start() {
    m_started = true;
    MakeRoom(kChunk);
    while (m_end < 3 && !m_atEnd) {
        const qsizetype size = ReadRaw(m_buffer.data() + m_end, kChunk - m_end);
        m_end += static_cast<std::size_t>(size);
    }
    const std::string_view start(m_buffer.data(), m_end);
    if (start.starts_with("\xEF\xBB\xBF"))
        m_begin = m_scanned = 3;
    m_utf16 = start.starts_with("\xFF\xFE");
    if (m_utf16) {
        m_raw.assign(m_buffer.data() + 2, m_buffer.data() + m_end);
        m_end = 0;
        AppendUtf16();
    }
}

/// Reads the next chunk behind what is there. False when there is nothing more.
bool CLineReader::ReadOn() {
    if (m_utf16) {
        m_raw.resize(kChunk);
        m_raw.resize(static_cast<std::size_t>(ReadRaw(m_raw.data(), kChunk)));
        if (m_raw.empty())
            return false;
        AppendUtf16();
        return true;
    }
    MakeRoom(kChunk);
    const qsizetype size = ReadRaw(m_buffer.data() + m_end, kChunk);
    m_end += static_cast<std::size_t>(size);
    return size > 0;
}

/// Moves the unfinished line to the front and makes room for `size` bytes behind it.
void CLineReader::MakeRoom(std::size_t size) {
    const std::size_t rest = m_end - m_begin;
    if (m_begin > 0 && rest > 0)
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, rest);
    m_scanned -= m_begin;
    m_begin = 0;
    m_end = rest;
    if (m_buffer.size() < rest + size)
        m_buffer.resize(std::max(rest + size, 2 * m_buffer.size()));
}

qsizetype CLineReader::ReadRaw(char* to, std::size_t size) {
    const qint64 got = m_device.read(to, static_cast<qint64>(size));
    m_failed = got < 0;
    m_atEnd = got <= 0;
    return std::max<qsizetype>(got, 0);
}

void CLineReader::AppendUtf16() {
    const QString text = m_decoder(QByteArrayView(m_raw.data(), static_cast<qsizetype>(m_raw.size())));
    MakeRoom(static_cast<std::size_t>(m_encoder.requiredSpace(text.size())));
    char* const begin = m_buffer.data() + m_end;
    m_end += static_cast<std::size_t>(m_encoder.appendToBuffer(begin, text) - begin);
}

} // namespace krt550
