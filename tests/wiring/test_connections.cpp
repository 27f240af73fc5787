// What inputs are tied to, and what a person may change about it.
#include "tests/wiring/wiring_files.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/read_once.h"
#include "wizard/wiring/pending_connections.h"

namespace krt550 {
namespace {

class Connections : public testing::Test {
protected:
    Connections() { SetWizardDirectory(WiringFiles().Directory()); }

    CSelectorList List(InputKind kind) {
        CReadOnce reads;
        return {kind, &m_drive.Root(), reads};
    }
    QString TextsOf(InputKind kind, int inputs) {
        QStringList texts;
        for (int input = 1; input <= inputs; ++input)
            texts.append(List(kind).UseOf(input).text);
        return texts.join('|');
    }
    /// The picker's lines: ticks as "+", what cannot be changed as "!".
    static QString Lines(const CConnectionPicker& picker) {
        QString lines;
        for (int item = 0; item < picker.Count(); ++item)
            lines += (picker.IsTicked(item) ? "+" : "-") + QString(picker.CanChange(item) ? "" : "!") +
                     picker.Name(item) + ' ';
        return lines.trimmed();
    }

    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    WiringDrive m_drive;
    MessageBoxes m_boxes;
};

TEST_F(Connections, TextsNameTheFunction) {
    const struct {
        std::map<quint16, quint16> words;
        std::set<quint16> unreadable;
        QString digital;  ///< DI1 to DI3
        QString analogue; ///< AI1 to AI4
    } cases[] = {
        {{}, {}, "-|-|-", "-|-|-|-"},
        {{{1001, 1}, {1004, 12}}, {}, "Start|Always inverted|-", "-|-|-|-"},
        {{{1001, 2}, {1002, 2}, {1003, 2}}, {}, "-|Multiple connections|-", "-|-|-|-"},
        {{{1001, 20}, {1101, 3}, {1102, 4}, {1003, 5}}, {}, "-|-|-", "On by voltage|-|Reference|Limit"},
        {{{1101, 1}, {1102, 1}}, {}, "-|-|-", "Multiple connections|-|-|-"},
        {{{1001, 1}, {1002, 1}}, {1002}, "Start|?|?", "-|-|-|-"}, // what was not read may be anybody's
        {{{1001, 65535}, {1101, 65535}}, {}, "-|-|-", "-|-|-|-"}, // a column without a value ties nothing
    };
    for (const auto& c : cases) {
        m_drive.words = {};
        for (const auto& [reg, word] : c.words)
            m_drive.words[reg] = word;
        m_drive.unreadable = c.unreadable;
        for (int times = 0; times < 3 * int(c.unreadable.size()); ++times)
            m_boxes.Expect("Reading parameter 10.02*");
        EXPECT_EQ(TextsOf(InputKind::Digital, 3), c.digital) << &c - cases;
        EXPECT_EQ(TextsOf(InputKind::Analogue, 4), c.analogue) << &c - cases;
    }
    EXPECT_EQ(PlainIndex(0x8000), 0x8000) << "an output's sign only marks an inversion";
}

TEST_F(Connections, PickersOfferWhatTheInputCanHave) {
    m_drive.words[1002] = 2;
    m_drive.words[1003] = 8;
    m_drive.words[1004] = 2;
    EXPECT_EQ(Lines({List(InputKind::Digital), 2, {}}), "-Start +Twin -Twin +!Always -Always inverted");
    EXPECT_EQ(Lines({List(InputKind::Digital), 3, {}}), "");
    EXPECT_EQ(Lines({List(InputKind::Digital), 8, {{0}, {}}}), "+Start -Twin +Twin -Always -Always inverted");
    CConnectionPicker picker(List(InputKind::Digital), 2, {});
    EXPECT_TRUE(picker.Hint(2).contains("Now connected to DI8"));
    picker.Tick(4, true); // a selector has one function of an input
    picker.Tick(1, false);
    EXPECT_EQ(Lines(picker), "-Start -Twin -Twin -Always +Always inverted");
    EXPECT_EQ(picker.GetChange().connect, std::vector<int>{4});
    EXPECT_EQ(picker.GetChange().disconnect, (std::vector<int>{1, 3}));
    EXPECT_TRUE(WriteConnections(&m_drive.Root(), InputKind::Digital, 2, picker.GetChange()));
    EXPECT_EQ(m_drive.TakeWrites(), (QStringList{"write 1004=12", "write 1002=0"}));
}

} // namespace
} // namespace krt550
