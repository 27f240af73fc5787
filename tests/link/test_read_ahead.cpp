#include "host/link/read_ahead.h"

namespace krt550 {
namespace {

QString Ranges(const std::vector<RegisterRange>& ranges) {
    QStringList texts;
    for (const RegisterRange& range : ranges)
        texts.append(QStringLiteral("%1+%2").arg(range.first).arg(range.count));
    return texts.join(QLatin1Char(' '));
}

TEST(ReadAhead, PutsRegistersIntoFewRequests) {
    const struct {
        RequestSize size;
        std::vector<quint16> registers;
        const char* requests;
    } cases[] = {
        {{125, 125}, {}, ""},
        {{125, 125}, {9903, 9902, 9904}, "9902+3"},
        {{125, 125}, {9906, 201, 9902, 202}, "9902+5 201+2"}, // in the order of the first read
        {{125, 125}, {9902, 9910, 9914}, "9902+1 9910+5"},    // 9908 does not exist
        {{125, 2}, {201, 204, 208}, "201+4 208+1"},           // a gap of 3 costs more than a request
        {{3, 125}, {201, 202, 203, 204, 204}, "201+3 204+1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Ranges(PlanRequests(c.registers, c.size, [](quint16 reg) { return reg != 9908; })).toStdString(),
                  c.requests);
    QString error;
    const RequestSize slow =
        RequestSizeFor(ParseWirePlace(QStringLiteral("modbus-rtu:/dev/tty,19200,8E1"), error).value());
    EXPECT_TRUE(slow.most > 20 && slow.most < 40 && slow.gap > 6 && slow.gap < 15) << slow.most << ", " << slow.gap;
}

TEST(ReadAhead, HandsEachWordOutOnceAndNothingThatIsOutOfDate) {
    CReadAhead ahead({125, 125}, {1, 2, 3, 4});
    const quint16 words[] = {10, 20, 30, 40};
    const quint16 wanted[] = {1, 4};
    ahead.Announce(wanted);
    EXPECT_TRUE(ahead.Expect(4));
    EXPECT_EQ(Ranges({ahead.Begin().value()}), QStringLiteral("1+4"));
    EXPECT_TRUE(ahead.Expect(4) && !ahead.Expect(2)) << "what nobody announced is not handed out";
    ahead.Take(words);
    EXPECT_FALSE(ahead.Expect(4));
    EXPECT_EQ(ahead.HandOut(4).value_or(0), 40);
    EXPECT_FALSE(ahead.HandOut(4) || ahead.HandOut(2));
    ahead.Announce(wanted);
    EXPECT_FALSE(ahead.HandOut(1)) << "older than the announcement";
    ahead.Begin();
    ahead.Drop();
    ahead.Take(words);
    EXPECT_FALSE(ahead.HandOut(1)) << "was on its way when something was written";
}

TEST(ReadAhead, ReadsAroundWhatTheDriveLacksAndRemembers) {
    std::set<quint16> described;
    for (quint16 reg = 1; reg <= 20; ++reg)
        described.insert(reg);
    CReadAhead ahead({125, 125}, described);
    const std::set<quint16> missing = {3, 10};
    const quint16 wanted[] = {1, 2, 5, 10, 11, 20};
    const auto readAll = [&] {
        int requests = 0;
        ahead.Announce(wanted);
        while (const auto range = ahead.Begin()) {
            ++requests;
            std::vector<quint16> words;
            for (int reg = range->first; reg < range->first + range->count; ++reg)
                words.push_back(static_cast<quint16>(reg * 10));
            const bool lacks = std::ranges::any_of(missing, [&](quint16 reg) { return range->Contains(reg); });
            lacks ? ahead.Split() : ahead.Take(words);
        }
        for (const quint16 reg : wanted)
            EXPECT_EQ(ahead.HandOut(reg).value_or(0), missing.contains(reg) ? 0 : reg * 10) << reg;
        return requests;
    };
    const int first = readAll();
    EXPECT_LT(readAll(), first) << "no request that is bound to be refused is made twice";
}

} // namespace
} // namespace krt550
