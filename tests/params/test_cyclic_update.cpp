#include "tests/params/row_fixture.h"

#include "hostlib/tolvbo32/clock.h"
#include "tests/support/batching_link.h"
#include "wizard/platform/control_text.h"

#include <QTest>

namespace krt550 {
namespace {

class CyclicUpdate : public RowFixture {
protected:
    void SetUp() override {
        RowFixture::SetUp();
        Bind();
        m_window.Widget().setFocus();
        m_drive.TakeLog();
    }
    /// Turns of the event loop up to the next drive call.
    void TakeTurn() {
        m_drive.TakeLog();
        while (IsUpdatePassOn() && m_drive.TakeLog().isEmpty())
            QCoreApplication::processEvents();
    }
};

TEST_F(CyclicUpdate, FollowsTheDriveWithoutMarking) {
    m_drive.words[101] = 15;
    m_drive.words[201] = 2;
    Pass();
    EXPECT_EQ(Edit(101).text(), "1.5");
    EXPECT_EQ(Switch().currentText(), "On");
    EXPECT_FALSE(IsChanged(101));
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 201", "read 101", "read 102", "read 301"}))
        << "once each, in binding order";
    m_drive.words[201] = 9;
    Pass();
    EXPECT_EQ(Switch().currentIndex(), -1) << "no choice fits";
}

TEST_F(CyclicUpdate, LeavesWhatTheUserWorksOnAlone) {
    Edit(101).setFocus();
    m_drive.words[101] = 15;
    Pass();
    EXPECT_EQ(Edit(101).text(), "0.0") << "the edit with the focus";
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 201", "read 102", "read 301"}));
    Type(101, "7");
    m_window.Widget().setFocus();
    for (int i = 0; i < 3; ++i)
        Pass();
    EXPECT_EQ(Edit(101).text(), "7") << "a changed value that is not applied";
    UnmarkChanged(101);
    Pass();
    EXPECT_EQ(Edit(101).text(), "1.5");
}

// One read a turn: whatever a person does in between counts, and nothing that has gone is touched.
TEST_F(CyclicUpdate, LetsInputInBetweenItsReads) {
    UpdateParameters(m_window, m_window.timer);
    EXPECT_EQ(m_drive.TakeLog(), QStringList()) << "the timer's call reads nothing itself";
    TakeTurn();
    Type(102, "7");
    EXPECT_TRUE(IsChanged(102)) << "typed during a pass";
    m_window.Widget().setFocus();
    m_drive.words[102] = 99;
    EndPass();
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read 101", "read 301"}));
    EXPECT_EQ(Edit(102).text(), "7");
    EXPECT_FALSE(IsChanged(101)) << "what the pass shows marks nothing";

    using End = std::function<void()>;
    int timer = m_window.SetTimer(7, 60000);
    for (const End& end :
         {End(ClearUpdateList), End(EndUpdatePass), End([&] { StopParameterUpdate(m_window, timer); })}) {
        errors.clear();
        Bind();
        UpdateParameters(m_window, timer);
        TakeTurn();
        end();
        EXPECT_FALSE(IsUpdatePassOn());
        m_drive.TakeLog();
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::processEvents();
        EXPECT_EQ(m_drive.TakeLog(), QStringList());
    }
}

TEST_F(CyclicUpdate, EndsWithItsWindow) {
    auto window = std::make_unique<CTickingWindow>();
    ASSERT_TRUE(window->Create());
    UpdateParameters(*window, window->timer);
    TakeTurn();
    EXPECT_TRUE(IsUpdatePassOn());
    window.reset();
    EXPECT_FALSE(IsUpdatePassOn());
}

// A pass takes as long as the drive; the period begins when it is over.
TEST_F(CyclicUpdate, CountsThePeriodFromTheEndOfThePass) {
    CSteppedClock clock;
    const ClockScope scope(clock);
    constexpr int kPeriodMs = 50;
    QList<qint64> begins;
    m_drive.onCall = [&](const QString& call) {
        if (call == "read 201")
            begins.append(clock.Now());
        clock.Sleep(100);
    };
    m_window.timer = m_window.SetTimer(7, kPeriodMs);
    while (begins.size() < 3)
        clock.WaitForEvents(1000);
    EXPECT_EQ(begins, (QList<qint64>{50, 500, 950}));
    m_window.KillAllTimers();
    ClearUpdateList();
    m_drive.onCall = {};
}

// What is shown twice is read once, and a link that is told beforehand asks once for all.
TEST_F(CyclicUpdate, AsksForEverythingAtOnceWhereTheLinkCan) {
    CBatchingLink link(m_drive);
    ClearUpdateList();
    m_drive.SetTreeLink(link);
    Bind();
    EXPECT_EQ(link.TakeRequests(), QStringList("fetch 201 101 102 301"));
    RegisterForUpdate(m_rows.Find(101)->GetParameter(), &Edit(102));
    m_drive.words[101] = 15;
    Pass();
    EXPECT_EQ(link.TakeRequests(), QStringList("fetch 201 101 102 301"));
    EXPECT_EQ(Edit(101).text(), "1.5");

    UpdateParameters(m_window, m_window.timer);
    TakeTurn();
    m_rows.Find(102)->Enter("5");
    EXPECT_TRUE(m_rows.Find(102)->Write());
    EXPECT_EQ(Edit(102).text(), "5") << "not what was fetched before the write";
    m_drive.words[101] = 25;
    EndPass();
    EXPECT_EQ(Edit(101).text(), "2.5");
}

TEST_F(CyclicUpdate, StopsOnceAndSaysSoWhenAReadFails) {
    m_window.timer = m_window.SetTimer(7, 60000);
    m_drive.unreadable = {101, 102};
    m_drive.words[201] = 2;
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
    m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
    Pass();
    EXPECT_EQ(m_window.timer, 0);
    EXPECT_EQ(Switch().currentText(), "On") << "the rest of the pass is still shown";

    m_window.timer = 4711;
    m_boxes.Expect("Reading parameter 1.01 Speed failed: simulated failure");
    m_boxes.Expect("Error while updating parameters\n Stopping parameter update.");
    m_boxes.Expect("Unable to stop parameter update.");
    Pass();
    int unknown = 4711;
    m_boxes.Expect("Unable to stop parameter update.");
    StopParameterUpdate(m_window, unknown);
    EXPECT_EQ(unknown, 0);
}

TEST_F(CyclicUpdate, StartsOnlyWithAPeriod) {
    EXPECT_NE(StartParameterUpdate(m_window, 7), 0);
    EXPECT_EQ(StartParameterUpdate(m_window, 8), 0) << "period 0";
    EXPECT_EQ(StartParameterUpdate(m_window, 9), 0) << "no period";
}

} // namespace
} // namespace krt550
