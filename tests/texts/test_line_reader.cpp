// Lines out of chunks, and files that break off.
#include "hostlib/text_files/line_reader.h"
#include "hostlib/text_files/text_fields.h"

namespace krt550 {
namespace {

/// Gives its bytes in pieces of a size and then ends, or fails.
class PieceDevice : public QIODevice {
public:
    PieceDevice(QByteArray bytes, qint64 piece, bool fails = false)
        : m_bytes(std::move(bytes)), m_piece(piece), m_fails(fails) {
        open(ReadOnly | Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 size) override {
        const qint64 got = std::min({size, m_piece, m_bytes.size() - m_at});
        if (got == 0)
            return m_fails ? -1 : 0;
        memcpy(data, m_bytes.constData() + m_at, static_cast<std::size_t>(got));
        m_at += got;
        return got;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_piece;
    bool m_fails;
    qint64 m_at = 0;
};

QStringList LinesOf(QIODevice& device, bool* failed = nullptr) {
    QStringList lines;
    CLineReader reader(device);
    std::string_view line;
    while (reader.NextLine(line))
        lines.append(TextOfField(line));
    if (failed)
        *failed = reader.HasFailed();
    return lines;
}

TEST(LineReaderTest, LinesDoNotDependOnTheChunks) {
    QString text; // U+0A0A has the byte of a line feed twice
    for (int line = 0; line < 300; ++line)
        text += QString(line * 7 % 1000, QChar(0x3B1 + line % 20)) + QStringLiteral("\U0001F600\u0A0A\r\n");
    text += QString(70'000, u'x') + QStringLiteral("\n\nend");
    const QStringList expected = QString(text).remove(u'\r').split(u'\n');
    QStringEncoder utf16(QStringEncoder::Utf16LE);
    for (const QByteArray& bytes :
         {text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(), "\xFF\xFE" + QByteArray(utf16(text))})
        for (const qint64 piece : {1, 2, 3, 1000, 65536, 10'000'000}) {
            PieceDevice device(bytes, piece);
            EXPECT_EQ(LinesOf(device), expected) << piece;
        }
}

TEST(LineReaderTest, AFailureGivesTheWholeLinesBeforeIt) {
    PieceDevice device("one\ntwo\nthr", 4, true);
    bool failed = false;
    EXPECT_EQ(LinesOf(device, &failed), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
    EXPECT_TRUE(failed);
}

TEST(FieldTest, NumbersEndAtTheFirstOtherCharacter) {
    const std::pair<const char*, int> numbers[] = {
        {"", 0},    {"x1", 0},  {"12x", 12}, {" \t-3", -3}, {"+4", 4},
        {"- 5", 0}, {"007", 7}, {"9.9", 9},  {"--1", 0},    {"99999999999999999999", 2147483647}};
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(NumberOfField(text), number) << text;
    EXPECT_EQ(WordOfField("-1"), 65535);
    EXPECT_EQ(WordOfField("65536"), 0);
    const std::pair<const char*, float> factors[] = {{" 0.5", 0.5F}, {"-2", -2.F}, {"+1.25x", 1.25F}, {"", 0.F},
                                                     {"x", 0.F},     {"+-1", 0.F}, {"1e2", 100.F}};
    for (const auto& [text, factor] : factors)
        EXPECT_EQ(FactorOfField(text), factor) << text;
}

} // namespace
} // namespace krt550
