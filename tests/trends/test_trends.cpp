#include "host/trends/trend_chart.h"
#include "host/trends/trend_export.h"
#include "host/trends/trend_panel.h"
#include "hostlib/tolvbo32/clock.h"
#include "tests/support/batching_link.h"
#include "tests/support/fake_drive.h"

#include <QTest>

namespace krt550 {
namespace {

const std::vector<ParameterDescription> kSignals = {
    Signal(104, QStringLiteral("Speed actual"), QStringLiteral("rpm")),
    Signal(116, QStringLiteral("Current, \"armature\""), QStringLiteral("A"), 1)};

class Trends : public testing::Test {
protected:
    Trends() {
        history.Choose(kSignals);
        link.onRequest = [this] {
            requestTimes.push_back(clock.Now());
            clock.Sleep(requestMs);
        };
        sampler.onFailure = [this](const QString& text) { failures.append(text); };
        drive.words = {{104, 1500}, {116, 65530}};
    }
    void Pass(qint64 milliseconds) {
        QEventLoop loop;
        CClockTimer timer([&loop] { loop.quit(); });
        timer.StartOnce(milliseconds);
        loop.exec();
    }
    std::optional<double> ValueAgo(std::size_t place, double seconds) const {
        return CTrendHistory::ValueAt(history.Signals()[place], history.End() - seconds);
    }

    CSteppedClock clock;
    ClockScope scope{clock};
    FakeDrive drive{kSignals};
    CBatchingLink link{drive};
    qint64 requestMs = 0;
    std::vector<qint64> requestTimes;
    QStringList failures;
    CTrendHistory history;
    CTrendSampler sampler{history};
};

TEST_F(Trends, TwentySamplesASecondTakeOneRequestEachOrAreReadSinglyWhereTheLineIsShared) {
    sampler.SetLink(&link);
    Pass(990);
    EXPECT_EQ(link.TakeRequests(), QStringList(20, QStringLiteral("fetch 104 116")));
    EXPECT_EQ(ValueAgo(0, 0), 1500);
    EXPECT_EQ(ValueAgo(1, 0.949), -0.6);
    EXPECT_EQ(ValueAgo(1, 0.951), std::nullopt);
    sampler.SetShared(true);
    Pass(1000);
    const QStringList requests = link.TakeRequests();
    EXPECT_EQ(requests.count(QStringLiteral("read 104")), 20);
    EXPECT_EQ(requests.count(QStringLiteral("read 116")), 20);
    EXPECT_EQ(requests.size(), 40);
    sampler.SetLink(nullptr);
    Pass(1000);
    EXPECT_EQ(link.TakeRequests(), QStringList());
}

TEST_F(Trends, EachRequestOfASlowLineLeavesFourTimesItsTimeToOthers) {
    for (const bool isShared : {false, true}) {
        requestMs = 40;
        requestTimes.clear();
        sampler.SetShared(isShared);
        sampler.SetLink(&link);
        Pass(4000);
        EXPECT_GE(requestTimes.size(), 18U);
        for (std::size_t i = 1; i < requestTimes.size(); ++i) {
            EXPECT_GE(requestTimes[i] - requestTimes[i - 1], 5 * requestMs) << isShared;
        }
    }
}

TEST_F(Trends, ASilentDriveLeavesAGapAndIsAskedOnceASecond) {
    sampler.SetLink(&link);
    Pass(500);
    drive.fails = [](const QString&) { return true; };
    drive.TakeLog();
    Pass(5000);
    EXPECT_LE(drive.TakeLog().size(), 10);
    EXPECT_EQ(failures, QStringList(QStringLiteral("No value of 1.04 Speed actual: simulated failure")));
    drive.fails = nullptr;
    Pass(2000);
    EXPECT_EQ(failures.size(), 2);
    EXPECT_EQ(failures.last(), QString());
    for (const std::size_t place : {0U, 1U}) {
        EXPECT_NE(ValueAgo(place, 0), std::nullopt);
        EXPECT_EQ(ValueAgo(place, 4), std::nullopt) << place;
        EXPECT_NE(ValueAgo(place, 7.2), std::nullopt) << place;
    }
}

TEST_F(Trends, OneSignalThatCannotBeReadTakesNothingFromTheOthers) {
    drive.unreadable = {104};
    sampler.SetShared(true);
    sampler.SetLink(&link);
    Pass(5000);
    const QStringList requests = link.TakeRequests();
    EXPECT_LE(requests.count(QStringLiteral("read 104")), 6);
    EXPECT_GE(requests.count(QStringLiteral("read 116")), 98);
    EXPECT_EQ(failures.size(), 1);
}

TEST_F(Trends, TheHistoryKeepsAnHour) {
    for (int second = 0; second <= 2 * 3600; ++second)
        history.Add(0, second * 1000, second);
    EXPECT_EQ(ValueAgo(0, 3599), 3601);
    EXPECT_EQ(ValueAgo(0, 3700), std::nullopt);
}

TEST_F(Trends, TheTableHasASampleALine) {
    history.Add(0, 1000, 1500);
    history.Add(1, 1000, -0.6);
    history.Add(0, 1050, std::nullopt);
    history.Add(1, 1050, 12);
    history.Add(1, 2000, 7);
    const auto time = [&](int ago) {
        return QDateTime::fromMSecsSinceEpoch(std::llround(history.End() * 1000) - ago)
            .toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"));
    };
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("trend.csv"));
    EXPECT_EQ(WriteTrendTable(history, history.End() - 1, history.End() - 0.5, path), QString());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()),
              QStringLiteral("Time,Seconds,1.04 Speed actual [rpm],\"1.16 Current, \"\"armature\"\" [A]\"\n"
                             "%1,0.000,1500,-0.6\n%2,0.050,,12.0\n")
                  .arg(time(1000), time(950)));
    EXPECT_EQ(WriteTrendTable(history, 0, history.End(), QStringLiteral("/no/place/trend.csv")),
              QStringLiteral("Cannot write /no/place/trend.csv: No such file or directory"));
}

TEST_F(Trends, ThePanelRemembersSignalsAndWindowAndKeepsItsCurves) {
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(QStringLiteral("state.ini")), QSettings::IniFormat);
    const QStringList chosen = {QStringLiteral("116"), QStringLiteral("2299"), QStringLiteral("104")};
    settings.setValue(QStringLiteral("trends/signals"), chosen + QStringList{QStringLiteral("x"), chosen[0]});
    settings.setValue(QStringLiteral("trends/window"), 600);
    CTrendPanel panel;
    panel.RestoreState(settings);
    panel.SetDrive(&link, kSignals);
    Pass(100);
    panel.SetDrive(nullptr, {});
    ASSERT_EQ(panel.History().Signals().size(), 2U);
    EXPECT_EQ(CTrendHistory::LastValue(panel.History().Signals()[0]), -0.6);
    settings.clear();
    panel.SaveState(settings);
    EXPECT_EQ(settings.value(QStringLiteral("trends/signals")).toStringList(), chosen);
    EXPECT_EQ(settings.value(QStringLiteral("trends/window")).toInt(), 600);
}

TEST_F(Trends, APersonsHandLetsThePictureStandUntilItIsToFollowAgain) {
    CTrendPanel panel;
    panel.resize(600, 400);
    panel.show();
    panel.SetDrive(&link, kSignals);
    Pass(60000);
    CTrendChart& chart = panel.Chart();
    const QPoint middle = chart.rect().center() - QPoint(0, 100);
    const QPoint there = middle + QPoint(100, 40);
    const auto drag = [&](Qt::KeyboardModifiers with) {
        QTest::mousePress(&chart, Qt::LeftButton, with, middle);
        QMouseEvent move(QEvent::MouseMove, there, chart.mapToGlobal(there), Qt::NoButton, Qt::LeftButton, with);
        QCoreApplication::sendEvent(&chart, &move);
        QTest::mouseRelease(&chart, Qt::LeftButton, with, there);
    };
    struct Hand {
        const char* name;
        std::function<void()> act;
        double longest; ///< what is then shown [s]
    };
    const Hand hands[] = {{"pause", [&] { QTest::keyClick(&chart, Qt::Key_Space); }, 60},
                          {"zoom by key", [&] { QTest::keyClick(&chart, Qt::Key_Plus); }, 50},
                          {"move by key", [&] { QTest::keyClick(&chart, Qt::Key_Left, Qt::ControlModifier); }, 60},
                          {"zoom of values", [&] { QTest::keyClick(&chart, Qt::Key_Minus, Qt::ControlModifier); }, 60},
                          {"wheel",
                           [&] {
                               QWheelEvent wheel(middle, chart.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                                                 Qt::NoModifier, Qt::NoScrollPhase, false);
                               QCoreApplication::sendEvent(&chart, &wheel);
                           },
                           59},
                          {"drag", [&] { drag(Qt::NoModifier); }, 60},
                          {"frame", [&] { drag(Qt::ShiftModifier); }, 15}};
    for (const Hand& hand : hands) {
        hand.act();
        const QCPRange shown = chart.ShownTimes();
        EXPECT_FALSE(chart.IsFollowing()) << hand.name;
        EXPECT_LE(shown.size(), hand.longest + 1e-3) << hand.name;
        Pass(1000);
        EXPECT_TRUE(shown == chart.ShownTimes()) << hand.name;
        QTest::keyClick(&chart, Qt::Key_End);
        EXPECT_TRUE(chart.IsFollowing()) << hand.name;
        EXPECT_EQ(chart.ShownTimes().upper, panel.History().End()) << hand.name;
        EXPECT_NEAR(chart.ShownTimes().size(), 60, 1e-3) << hand.name;
    }
    panel.SetDrive(nullptr, {});
}

} // namespace
} // namespace krt550
