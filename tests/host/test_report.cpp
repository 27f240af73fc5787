// Records and reports of the real program.
#include "tests/host/tool_run.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

#include <sys/resource.h>
#include <unistd.h>

namespace krt550 {
namespace {

/// Looks at step 1, changes a value, and has the drive trip in the run of step 3.
constexpr const char* kTrippedPlay = "start\nset 9902 250\npress apply\nwait idle\n"
                                     "press next\nwait idle\npress next\nwait idle\n"
                                     "press 60202\nwait box\nanswer ok\nwait progress 10\nfault trip:105\n"
                                     "wait box within 60\nanswer ok\nwait idle\npress cancel\n";

class Report : public testing::Test {
protected:
    /// The report of ~/r as text.
    QString Html(const QString& name = QStringLiteral("r.html")) {
        EXPECT_EQ(m_tool.Run(QLatin1String("report ~/r -o ~/") + name), 0) << m_tool.errors.toStdString();
        return m_tool.Lines(name).join(QLatin1Char('\n'));
    }
    ToolRun m_tool;
};

TEST_F(Report, SaysWhatWasFoundDoneAndLeft) {
    m_tool.Play(QString::fromUtf8(kTrippedPlay), QStringLiteral("--record ~/r"));
    const QString html = Html();
    for (const char* part : {
             "<td class=\"register\">99.02</td><td>Motor 1 nominal voltage</td><td class=\"number\">240</td>"
             "<td class=\"number\">250</td><td class=\"unit\">V</td>",
             "1. Name plate data</td><td><span class=\"good\">1 value written",
             "2. Macro assistant</td><td><span class=\"good\">checked, nothing changed",
             "3. Autotuning field current controller</td><td><span class=\"bad\">not completed: Overspeed: ",
             "7. Field weakening assistant</td><td><span class=\"open\">skipped",
             "Run 1: Autotuning field current controller",
             "Armature current [A]",
             "<td class=\"number\">105</td><td>Drive time: ",
             "the drive has tripped, fault code 105",
             "The motor might turn during autotuning!",
             "Accepted by",
         })
        EXPECT_TRUE(html.contains(QLatin1String(part))) << part;
    EXPECT_FALSE(html.contains(QLatin1String("has no end")));
    EXPECT_EQ(html, Html(QStringLiteral("again.html"))) << "the same record, the same bytes";
    EXPECT_EQ(m_tool.Run(QStringLiteral("report ~/r -o ~/r.pdf")), 0);
    EXPECT_TRUE(m_tool.Lines(QStringLiteral("r.pdf")).first().startsWith(QLatin1String("%PDF-")));
}

TEST_F(Report, CoversTheSessionsWithTheLastOnesDrive) {
    const QString play = QStringLiteral("start\nset 9902 250\npress apply\nwait idle\n");
    for (const char* drive : {"sim:S1", "sim", "sim"})
        EXPECT_EQ(m_tool.Play(play, QStringLiteral("--record ~/r --drive ") + QLatin1String(drive)), 0)
            << m_tool.errors.toStdString();
    const QString html = Html();
    EXPECT_FALSE(html.contains(QLatin1String("Session 1")));
    EXPECT_TRUE(html.contains(QLatin1String("Session 2")) && html.contains(QLatin1String("Session 3")));
    EXPECT_TRUE(html.contains(QLatin1String("sessions with other drives (1)")));
}

TEST_F(Report, TellsOfAProgramThatWasKilled) {
    ToolRun killed;
    killed.Write(QStringLiteral("a.play"), QStringLiteral("start\nset 9902 250\npress apply\nwait idle\nsay Now\n"
                                                          "wait 600 within 600\n"));
    killed.Start(QLatin1String("--speed 10 --play ~/a.play --record ") + m_tool.Path(QStringLiteral("r")));
    ASSERT_TRUE(killed.WaitForOutput(QStringLiteral("Now")));
    // The record has the write before it is sent; what came of it goes to the disk a little later.
    const auto isKnown = [this] { return Html().contains(QLatin1String("<td class=\"number\">250</td>")); };
    EXPECT_TRUE(QTest::qWaitFor(isKnown, 60'000)) << "known without being read at the end";
    killed.process.kill();
    killed.process.waitForFinished();
    EXPECT_TRUE(Html().contains(QLatin1String("Session 1 has no end")) && isKnown());
}

// The file may not grow any more in the middle of the session.
TEST_F(Report, ADiskThatFillsUpIsToldOnceAndTheRunGoesOn) {
    m_tool.process.setChildProcessModifier([] {
        const rlimit limit{90'000, 90'000};
        setrlimit(RLIMIT_FSIZE, &limit);
    });
    EXPECT_EQ(m_tool.Play(QStringLiteral("start\nset 9902 250\npress apply\nwait idle\nexpect drive 9902 250\n"),
                          QStringLiteral("--record ~/r")),
              1);
    EXPECT_EQ(m_tool.errors.count(QLatin1Char('\n')), 1) << m_tool.errors.toStdString();
    EXPECT_TRUE(m_tool.errors.contains(QLatin1String("cannot be written"))) << m_tool.errors.toStdString();
    EXPECT_TRUE(m_tool.output.contains(QLatin1String("RunWizard returned 0")));
    m_tool.process.setChildProcessModifier({});
    // What came later may still have found room.
    EXPECT_TRUE(Html().contains(QRegularExpression(QStringLiteral("Session 1 has no end|session 1 lacks"))));
}

TEST_F(Report, APersonsSessionIsRecordedUnlessNotWanted) {
    m_tool.SetVariable("XDG_DATA_HOME", m_tool.Path(QStringLiteral("data")));
    const QDir records(m_tool.Path(QStringLiteral("data/krt550tool/records")));
    for (const char* option : {"--record none", ""}) {
        EXPECT_TRUE(records.isEmpty()) << option;
        m_tool.Start(QLatin1String("--drive sim:S2 ") + QLatin1String(option));
        ASSERT_TRUE(m_tool.process.waitForStarted());
        QElapsedTimer timer;
        timer.start();
        while (records.isEmpty() && timer.elapsed() < (*option ? 1000 : 20'000))
            usleep(20'000);
        m_tool.process.terminate();
        m_tool.process.waitForFinished();
    }
    const QStringList names = records.entryList({QStringLiteral("*.record")});
    ASSERT_EQ(names.size(), 1);
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^sim-S2_\\d{4}-\\d\\d-\\d\\d\\.record$")).match(names.first()).hasMatch())
        << names.first().toStdString();
}

} // namespace
} // namespace krt550
