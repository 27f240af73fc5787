// Serial communication and master-follower: adapter rows that come and go, words and what they point to, directions.
#include "tests/assistants/special_fixture.h"

#include "wizard/platform/pointer_ids.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

constexpr int kMasterFollower = 177;
constexpr int kSerial = 179;

class LinkPages : public SpecialFixture {
protected:
    /// What a word shows: its choice or index, and what it points to.
    static QString Word(int number) {
        const int index = PointerId(number, kPointerIndex);
        return Robot::Text(Robot::Find(index) ? index : PointerId(number, kPointerChoice)) + '|' +
               Robot::Text(PointerId(number, kPointerValue)) + '|' + Robot::Text(PointerId(number, kPointerUnit));
    }
    static QString Label(int number) { return Robot::Text(PointerId(number, kPointerLabel)); }
    QStringList ApplyAndTakeWrites() {
        m_drive->TakeLog();
        Robot::Press(kApply);
        return m_drive->TakeLog({"write"});
    }
};

TEST_F(LinkPages, FieldbusRowsAreThoseThatTheAdapterUses) {
    m_names = {{5120, "FIELDBUS par 20"}, {5121, "fieldbus"}, {5122, "Old fieldbus setting"}};
    OnPage(kSerial,
           [] {
               for (const quint16 reg : std::initializer_list<quint16>{5103, 5120, 5121, 5124, 5128}) {
                   EXPECT_FALSE(Robot::Find(LabelId(reg)) || Robot::Find(ValueId(reg))) << reg;
               }
               EXPECT_EQ(Robot::Text(LabelId(5101)), "5101 Module type");
               EXPECT_EQ(Robot::Text(ValueId(5101)), "PROFIBUS DP");
               EXPECT_EQ(Robot::Text(LabelId(5122)), "5122 Old fieldbus setting");
               EXPECT_TRUE(Robot::Control(LabelId(5122))->toolTip().contains("Old fieldbus setting"));
               EXPECT_TRUE(Robot::Find(ValueId(5129)) && Robot::Find(ValueId(5133)));
           },
           {5103});
}

TEST_F(LinkPages, DefaultsOfTheAdapterFillAndMarkExactlyTheirEdits) {
    struct {
        quint16 type;
        QStringList writes;
    } const cases[] = {
        {0, {}},
        {1,
         {"write 5103=1500", "write 5104=4", "write 5105=6", "write 5106=6", "write 5107=0", "write 5108=200",
          "write 5109=0", "write 5110=1", "write 5118=1", "write 5119=1"}},
        {2,
         {"write 5103=500", "write 5105=6", "write 5106=6", "write 5108=200", "write 5109=0", "write 5110=1",
          "write 5118=1", "write 5122=100", "write 5123=3"}},
        {6,
         {"write 5104=4", "write 5105=6", "write 5106=6", "write 5108=200", "write 5109=0", "write 5110=1",
          "write 5115=24", "write 5117=0", "write 5118=1"}},
    };
    for (const auto& c : cases) {
        m_prepare = [&](FakeDrive& drive) {
            drive.words[5101] = c.type;
            drive.words[5108] = 7;
        };
        OnPage(kSerial, [&] {
            m_drive->TakeLog();
            Robot::Press(kIdFieldbusDefaults);
            EXPECT_EQ(m_drive->TakeLog({"write"}), QStringList());
            EXPECT_EQ(Robot::Text(ValueId(5108)), c.writes.isEmpty() ? "7" : "200") << c.type;
            EXPECT_EQ(ApplyAndTakeWrites(), c.writes) << c.type;
            EXPECT_EQ(ApplyAndTakeWrites(), QStringList());
        });
    }
}

TEST_F(LinkPages, WordsShowWhatTheyPointTo) {
    m_prepare = [](FakeDrive& drive) {
        drive.words[9201] = 104;
        drive.words[104] = 1234;
        drive.words[9202] = 0;
        drive.words[9203] = 199; // the drive has none
        drive.words[9204] = 4304;
        drive.words[4304] = 125;
        drive.words[9205] = 114;
    };
    OnPage(
        kSerial,
        [this] {
            m_drive->unreadable = {114};
            m_boxes.Expect("Error while uploading transmit/receive pointed parameter").WithIcon(QMessageBox::Critical);
            m_boxes.Expect("Reading parameter 1.14 Armature voltage failed: simulated failure");
            Robot::ShowTab(2);
            m_boxes.Verify();
            EXPECT_EQ(Word(1), "Speed actual|1234|rpm");
            EXPECT_EQ(Word(2), "Not connected||");
            EXPECT_EQ(Word(3), "Other|N/A|N/A");
            EXPECT_EQ(Word(4), "Other|12.5|%/ms");
            EXPECT_EQ(Word(5), "Armature voltage|N/A|N/A");
            EXPECT_EQ(Label(1), "9201 Transmit dataset 2 value 1");
            EXPECT_FALSE(Robot::IsEnabled(PointerId(12, kPointerChoice)));
            m_drive->unreadable.clear();

            m_drive->words[104] = 1300;
            LetAnUpdatePass();
            EXPECT_EQ(Word(1), "Speed actual|1300|rpm");
            Robot::Choose(PointerId(1, kPointerChoice), "Motor torque");
            LetAnUpdatePass();
            EXPECT_EQ(Word(1), "Motor torque|?|?") << "until it is applied";
            m_drive->words[108] = 250;
            EXPECT_EQ(ApplyAndTakeWrites(), QStringList("write 9201=108"));
            EXPECT_EQ(Word(1), "Motor torque|25.0|%");

            Robot::Press(kIdPointerView);
            EXPECT_EQ(Robot::Text(kIdPointerView), "Basic");
            EXPECT_EQ(Word(1), "108|25.0|%");
            Robot::Type(PointerId(2, kPointerIndex), "199");
            Robot::Type(PointerId(4, kPointerIndex), "0");
            m_drive->words[9201] = 101; // by somebody else
            m_drive->words[101] = 77;
            EXPECT_EQ(ApplyAndTakeWrites(), (QStringList{"write 9202=199", "write 9204=0"}));
            EXPECT_EQ(Word(2), "199|N/A|N/A");
            EXPECT_EQ(Word(4), "0||");
            LetAnUpdatePass();
            EXPECT_EQ(Word(1), "101|77|rpm");

            m_drive->unreadable = {101};
            m_boxes.Expect("Reading parameter 1.01 Motor speed filtered failed: simulated failure");
            m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
            LetAnUpdatePass();
            m_boxes.Verify();
            m_drive->TakeLog();
            LetAnUpdatePass();
            EXPECT_EQ(m_drive->TakeLog(), QStringList()) << "stopped";
        },
        {9212});
}

TEST_F(LinkPages, WhatAWordPointsToFailsAfterAWrite) {
    OnPage(kSerial, [this] {
        Robot::ShowTab(1);
        m_drive->unreadable = {705};
        m_drive->unwritable = {9002};
        m_boxes.Expect("Error while uploading pointed parameter (705)").WithIcon(QMessageBox::Critical);
        m_boxes.Expect("Reading parameter 7.05 Digital outputs from fieldbus failed: simulated failure\n\n"
                       "The same happened with:\n9002 Receive dataset 1 value 2 (writing)");
        Robot::Choose(PointerId(1, kPointerChoice), "Digital outputs from fieldbus");
        Robot::Choose(PointerId(2, kPointerChoice), "Not connected");
        EXPECT_EQ(ApplyAndTakeWrites(), (QStringList{"write 9001=705", "write 9002=0"}));
        m_boxes.Verify();
        EXPECT_EQ(Word(1), "Digital outputs from fieldbus|N/A|N/A");
        EXPECT_EQ(Word(2), "Not connected|?|?") << "what was refused can be corrected";
        m_drive->unwritable.clear();
        EXPECT_EQ(ApplyAndTakeWrites(), QStringList("write 9002=0"));
        EXPECT_EQ(Word(2), "Not connected||");
    });
}

// The mailboxes' controls have the same ids: what one tab writes must not show up on another.
TEST_F(LinkPages, MailboxesKeepApart) {
    m_prepare = [](FakeDrive& drive) {
        drive.words[9414] = 104;
        drive.words[9420] = 108;
    };
    OnPage(kMasterFollower, [this] {
        Robot::Type(ValueId(9401), "3");
        EXPECT_EQ(ApplyAndTakeWrites(), QStringList("write 9401=3"));
        Robot::ShowTab(1);
        Robot::ShowTab(3);
        Robot::ShowTab(0);
        Robot::Choose(PointerId(2, kPointerChoice), "Speed actual");
        EXPECT_EQ(ApplyAndTakeWrites(), QStringList("write 9415=104"));
        m_drive->words[9412] = 9;
        m_drive->words[9414] = 108;
        LetAnUpdatePass();
        EXPECT_EQ(Robot::Text(kIdMailBoxId), "9");
        EXPECT_EQ(Word(1), "Motor torque|0.0|%");
        EXPECT_EQ(ApplyAndTakeWrites(), QStringList());
    });
}

} // namespace
} // namespace krt550
