#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "tests/support/descriptions.h"

namespace krt550 {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

ParameterDescription Plain(DataType type, int decimals, double minimum = 0, double maximum = 0) {
    ParameterDescription parameter = Number(2005, "Torque limit", decimals, minimum, maximum);
    parameter.dataType = type;
    return parameter;
}

TEST(ValueCodec, ShowsWordsByDataTypeAndResolution) {
    const struct {
        DataType type;
        int decimals;
        quint16 word;
        const char* text;
    } cases[] = {
        {DataType::Unsigned16, 0, 65535, "65535"},  {DataType::Unsigned16, 2, 65535, "655.35"},
        {DataType::Unsigned16, 4, 1, "0.0001"},     {DataType::Signed16, 0, 0xFFFF, "-1"},
        {DataType::Signed16, 1, 0x8000, "-3276.8"}, {DataType::Signed16, 2, 0xFF38, "-2.00"},
        {DataType::Signed16, 3, 0, "0.000"},        {DataType::Unsigned8, 0, 0x01FE, "254"},
        {DataType::Bits, 0, 0x8001, "32769"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ShownText(Plain(c.type, c.decimals), c.word).toStdString(), c.text) << c.word;
}

TEST(ValueCodec, TurnsNumbersIntoWordsOrRefusesThem) {
    constexpr int kRefused = -1;
    const struct {
        DataType type;
        int decimals;
        double minimum, maximum, shown;
        int word;
    } cases[] = {
        // Without limits the data type alone limits.
        {DataType::Unsigned8, 0, 0, 0, 255, 255},
        {DataType::Unsigned8, 0, 0, 0, 256, kRefused},
        {DataType::Signed16, 0, 0, 0, -32768, 0x8000},
        {DataType::Signed16, 0, 0, 0, 32768, kRefused},
        {DataType::Unsigned16, 1, 0, 0, 6553.6, kRefused},
        // Limits count inclusively, in shown units.
        {DataType::Signed16, 1, -10, 20, -10, 0xFF9C},
        {DataType::Signed16, 1, -10, 20, 20, 200},
        {DataType::Signed16, 1, -10, 20, -10.1, kRefused},
        // Rounding to the resolution, half away from zero, and only then against the limits.
        {DataType::Signed16, 1, 0, 0, 1.25, 13},
        {DataType::Signed16, 1, 0, 0, -1.25, 0xFFF3},
        {DataType::Unsigned16, 1, 0, 0.3, 0.1 + 0.2, 3},
        {DataType::Unsigned16, 0, 0, 10, 10.4, 10},
        {DataType::Unsigned16, 0, 0, 10, 10.5, kRefused},
        {DataType::Unsigned16, 0, 0.4, 10.5, 0, kRefused},
        {DataType::Unsigned16, 0, 0.4, 10.5, 10.9, kRefused},
        // Limits beyond the data type do not widen it.
        {DataType::Unsigned16, 0, -5, 70000, 65536, kRefused},
        // Not a number at all.
        {DataType::Unsigned16, 0, 0, 0, kNaN, kRefused},
    };
    for (const auto& c : cases) {
        QString error;
        const auto word = WordOfNumber(Plain(c.type, c.decimals, c.minimum, c.maximum), c.shown, error);
        EXPECT_EQ(word ? *word : kRefused, c.word) << c.shown << " in " << c.minimum << ".." << c.maximum;
        EXPECT_EQ(error.isEmpty(), word.has_value()) << c.shown;
    }
}

TEST(ValueCodec, MeasuredValuesStopAtTheEndOfTheDataType) {
    EXPECT_EQ(NearestWord(Plain(DataType::Signed16, 1, -10, 10), 12.34), 123);
    EXPECT_EQ(NearestWord(Plain(DataType::Signed16, 1), 1e9), 0x7FFF);
    EXPECT_EQ(NearestWord(Plain(DataType::Signed16, 1), -1e9), 0x8000);
    EXPECT_EQ(NearestWord(Plain(DataType::Unsigned16, 0), -3), 0);
    EXPECT_EQ(NearestWord(Plain(DataType::Unsigned8, 0), std::numeric_limits<double>::infinity()), 255);
    EXPECT_EQ(NearestWord(Plain(DataType::Unsigned16, 0), kNaN), 0);
}

TEST(ValueCodec, ReadsTypedTextsAndTellsTheRangeInShownUnits) {
    ParameterDescription limit = Plain(DataType::Signed16, 1, -10, 20);
    limit.name = QStringLiteral("Share of %2");
    limit.unit = QStringLiteral("%");
    QString error;
    EXPECT_EQ(WordOfText(limit, QStringLiteral(" -2,5 "), error), 0xFFE7);
    for (const char* refused : {"", "   ", "12.5 A", "1.2.3", "nan"})
        EXPECT_FALSE(WordOfText(limit, QString::fromLatin1(refused), error)) << refused;
    EXPECT_FALSE(AcceptsWord(limit, 250, error));
    EXPECT_EQ(error.toStdString(),
              "Parameter 20.05 Share of %2: 25 is out of range. It must lie between -10.0 and 20.0 %.");
}

TEST(ValueCodec, ValueListsTakeTheirTextsAndNumbersOnly) {
    const ParameterDescription list = List(5003, "Feedback", {{0, "EMF"}, {5, "2"}, {7, "#excl#"}, {9, "Tacho"}});
    QString error;
    EXPECT_EQ(WordOfText(list, QStringLiteral("Tacho"), error), 9);
    EXPECT_EQ(WordOfText(list, QStringLiteral("9"), error), 9);
    EXPECT_EQ(WordOfText(list, QStringLiteral("2"), error), 5) << "a text of the list goes before a number";
    for (const char* refused : {"tacho", "4", "-1", "0.4", "#excl#", ""})
        EXPECT_FALSE(WordOfText(list, QString::fromLatin1(refused), error)) << refused;
    EXPECT_EQ(ShownText(list, 9).toStdString(), "Tacho");
    EXPECT_EQ(ShownText(list, 4).toStdString(), "4") << "a value outside the list is shown as its number";
    EXPECT_EQ(ShownText(list, 7).toStdString(), "7") << "so is a value that is not offered";
    EXPECT_FALSE(AcceptsWord(list, 4, error));
    EXPECT_TRUE(AcceptsWord(list, 7, error)) << "the drive may hold it all the same";
    EXPECT_FALSE(AcceptsWord(Plain(DataType::Unsigned8, 0), 0x0100, error)) << "wider than the data type";
}

TEST(Dtoa, KeepsTheDecimalsAndShowsNoNegativeZero) {
    EXPECT_EQ(dtoa(2.5, 2).toStdString(), "2.50");
    EXPECT_EQ(dtoa(-1234567.0, 0).toStdString(), "-1234567");
    EXPECT_EQ(dtoa(-0.001, 2).toStdString(), "0.00");
    EXPECT_EQ(dtoa(-0.005001, 2).toStdString(), "-0.01");
}

} // namespace
} // namespace krt550
