#pragma once

#include <QIODevice>
#include <QStringDecoder>
#include <QStringEncoder>

#include <string_view>
#include <vector>

namespace krt550 {

/// Reads the lines of a text file as 8-bit text. A file that starts with the UTF-16 little-endian mark is turned into
/// UTF-8 on the way; any other is passed on as it is (without a UTF-8 mark). Works in chunks: a file of any size needs
/// room for its longest line only.
class CLineReader {
public:
    /// The device is borrowed and open.
    explicit CLineReader(QIODevice& device);

    /// Gives the next line without its end (CR LF or LF), valid until the next call. False at the end of the file, or
    /// when it cannot be read any further; a line cut off by that is not given.
    bool NextLine(std::string_view& line);

    bool HasFailed() const { return m_failed; }

private:
    void Start();
    bool ReadOn();
    void MakeRoom(std::size_t size);
    qsizetype ReadRaw(char* to, std::size_t size);
    void AppendUtf16();

    QIODevice& m_device;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;   ///< first byte of the next line
    std::size_t m_scanned = 0; ///< up to here there is no line end
    std::size_t m_end = 0;     ///< end of what has been read
    bool m_started = false;
    bool m_atEnd = false;
    bool m_failed = false;
    bool m_utf16 = false;
    std::vector<char> m_raw;
    QStringDecoder m_decoder{QStringDecoder::Utf16LE};
    QStringEncoder m_encoder{QStringEncoder::Utf8};
};

} // namespace krt550
