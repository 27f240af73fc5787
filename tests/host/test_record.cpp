// What a session writes down: with the real file, seen through a connection of the test's own.
#include "host/record/record_file.h"
#include "host/record/record_writer.h"
#include "host/record/recording.h"
#include "hostlib/tolvbo32/clock.h"
#include "tests/support/fake_drive.h"
#include "tests/support/shipped_drive.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>

namespace krt550 {
namespace {

class Record : public testing::Test {
protected:
    Record() {
        QString error;
        EXPECT_TRUE(
            m_writer->Open(m_path, {.drive = "a", .program = "b", .started = "2026-01-01T00:00:00.000Z"}, error))
            << error.toStdString();
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test"));
        database.setDatabaseName(m_path);
        EXPECT_TRUE(database.open());
        m_recording.emplace(m_writer.get(), m_drive, m_drive);
    }
    ~Record() override {
        m_recording.reset();
        m_writer.reset();
        QSqlDatabase::database(QStringLiteral("test")).close();
        QSqlDatabase::removeDatabase(QStringLiteral("test"));
    }

    bool Execute(const char* statement) {
        return QSqlQuery(QSqlDatabase::database(QStringLiteral("test"))).exec(QLatin1String(statement));
    }
    /// Rows of a query, columns separated by blanks.
    QStringList Ask(const char* select) {
        QSqlQuery query(QLatin1String(select), QSqlDatabase::database(QStringLiteral("test")));
        QStringList rows;
        while (query.next()) {
            QStringList columns;
            for (int i = 0; i < query.record().count(); ++i)
                columns += query.value(i).toString();
            rows += columns.join(QLatin1Char(' '));
        }
        return rows;
    }
    void Pass(qint64 milliseconds) {
        QEventLoop loop;
        m_clock.SetAlarm(milliseconds, [&loop] { loop.quit(); });
        loop.exec();
    }
    /// A run of a service mode as the wizard makes it, until the drive has ended it.
    void Run(qint64 milliseconds) {
        EXPECT_TRUE(m_recording->Link().WriteWord(9906, 2));
        EXPECT_TRUE(m_recording->Drive().StartMotor());
        m_drive.statusWord = 0;
        Pass(milliseconds);
        quint16 word = 0;
        m_drive.words[9906] = 0;
        m_drive.words[4403] = 560; // what the drive has found
        m_recording->Link().ReadWord(9906, word);
        m_recording->Drive().StopMotor();
        m_drive.statusWord = kStatusStopped;
        m_recording->Drive().GetStatusWord();
        m_recording->Link().ReadWord(4403, word);
        Pass(10);
    }

    // In memory, where there is such a place: how long this machine's disk takes is not what is tried here.
    QTemporaryDir m_directory{QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                  ? QStringLiteral("/dev/shm/krt550-XXXXXX")
                                  : QDir::tempPath() + QStringLiteral("/krt550-XXXXXX")};
    QString m_path = m_directory.filePath(QStringLiteral("a.record"));
    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    FakeDrive m_drive{ShippedParameters()};
    QStringList m_complaints;
    std::unique_ptr<CRecordWriter> m_writer =
        std::make_unique<CRecordWriter>([](QString&) { return std::make_unique<CRecordFile>(); },
                                        [this](const QString& text) { m_complaints.append(text); });
    std::optional<CRecording> m_recording;
};

TEST_F(Record, HasWhatMakesTheDriveMoreAliveBeforeItIsSentAndStopsAfterwards) {
    CHostDrive& drive = m_recording->Drive();
    CParameterLink& link = m_recording->Link();
    const struct {
        std::function<bool()> send;
        const char* recorded;
        bool isStop;
    } cases[] = {
        {[&] { return link.WriteWord(9902, 250); }, "write 9902 250", false},
        {[&] { return link.WriteWord(9906, 2); }, "write 9906 2", false},
        {[&] { return drive.TakeLocalControl(); }, "command TakeLocalControl", false},
        {[&] { return drive.CloseContactor(); }, "command CloseContactor", false},
        {[&] { return drive.StartMotor(); }, "command StartMotor", false},
        {[&] { return drive.ResetFault(); }, "command ResetFault", false},
        {[&] { return drive.SetReference("250"); }, "command SetReference 250", false},
        {[&] { return drive.SetReference("0.0"); }, "command SetReference 0.0", true},
        {[&] { return link.WriteWord(9906, 0); }, "write 9906 0", true},
        {[&] { return drive.StopMotor(); }, "command StopMotor", true},
        {[&] { return drive.OpenContactor(); }, "command OpenContactor", true},
        {[&] { return drive.ReleaseLocalControl(); }, "command ReleaseLocalControl", true},
    };
    const char* last = "SELECT rtrim(kind || ' ' || coalesce(register || ' ' || new_word, text) || ' ' || "
                       "coalesce(detail, '')) FROM event WHERE kind <> 'run' ORDER BY n DESC LIMIT 1";
    for (const auto& c : cases) {
        bool wasRecorded = false;
        m_drive.onCall = [&](const QString&) { wasRecorded = Ask(last).contains(QLatin1String(c.recorded)); };
        EXPECT_TRUE(c.send()) << c.recorded;
        m_drive.onCall = {};
        EXPECT_EQ(wasRecorded, !c.isStop) << c.recorded;
        m_writer->Wait();
        EXPECT_EQ(Ask(last), QStringList(QLatin1String(c.recorded)));
    }
    m_drive.unwritable = {9903};
    EXPECT_FALSE(link.WriteWord(9903, 1));
    m_writer->Wait();
    EXPECT_EQ(Ask("SELECT ok || ' ' || coalesce(text, '') FROM outcome ORDER BY n DESC LIMIT 1"),
              QStringList("0 simulated failure"));
}

TEST_F(Record, IsOnlyAppendedTo) {
    m_recording->Link().WriteWord(9902, 250);
    EXPECT_FALSE(Execute("UPDATE event SET new_word = 1"));
    EXPECT_FALSE(Execute("DELETE FROM event"));
    EXPECT_FALSE(Execute("DELETE FROM session"));
    EXPECT_EQ(Ask("PRAGMA journal_mode"), QStringList("wal"));
}

TEST_F(Record, HoldsARunWithItsTraceAndWhatTheDriveHasFound) {
    m_drive.words[4403] = 200;
    m_drive.words[104] = 65436; // -100 rpm
    m_drive.words[130] = 107;
    m_recording->Begin();
    m_drive.TakeLog();
    Run(1000);
    m_recording->End();
    EXPECT_EQ(Ask("SELECT new, ok, outcome FROM story WHERE kind = 'run'"),
              QStringList("Autotuning field current controller 1 successful; ended by the drive"));
    EXPECT_EQ(Ask("SELECT register, old_word, new_word FROM event WHERE kind = 'change'"),
              QStringList({"9906 2 0", "4403 200 560"}));
    EXPECT_EQ(Ask("SELECT min(speed), max(field_current), count(*) BETWEEN 20 AND 21 FROM sample"),
              QStringList("-100 1.07 1"));
    const QString all = QString::number(ShippedParameters().size());
    EXPECT_EQ(Ask("SELECT moment, count(*) FROM value GROUP BY moment"),
              QStringList({"as-found " + all, "as-left " + all}));
    EXPECT_EQ(Ask("SELECT word FROM value WHERE register = 4403 ORDER BY moment"), QStringList({"200", "560"}));
}

// A stop that the drive has not taken is repeated with nothing else asked of the line.
TEST_F(Record, AsksTheDriveNothingWhileAStopWaitsToBeTaken) {
    m_recording->Link().WriteWord(9906, 2);
    m_recording->Drive().StartMotor();
    m_drive.statusWord = 0;
    Pass(100);
    EXPECT_FALSE(m_drive.TakeLog({QStringLiteral("read")}).isEmpty());
    m_drive.fails = [](const QString& call) { return call == QLatin1String("stop motor"); };
    m_recording->Drive().StopMotor();
    Pass(2000);
    EXPECT_EQ(m_drive.TakeLog({QStringLiteral("read")}), QStringList());
    m_drive.fails = {};
    m_recording->Drive().StopMotor();
    Pass(500);
    EXPECT_FALSE(m_drive.TakeLog({QStringLiteral("read")}).isEmpty()) << "the motor runs down";
}

// One register at a time, and four fifths of the time for others.
TEST_F(Record, LeavesASlowLineToTheWizard) {
    m_recording->Link().WriteWord(9906, 2);
    m_recording->Drive().StartMotor();
    m_drive.TakeLog();
    m_drive.onCall = [this](const QString& call) {
        if (call.startsWith(QLatin1String("read")))
            m_clock.Sleep(100);
    };
    Pass(5000);
    const qsizetype reads = m_drive.TakeLog({QStringLiteral("read")}).size();
    EXPECT_TRUE(reads >= 8 && reads <= 10) << reads;
}

// Behind the first window, a piece a turn, while nobody has announced anything; the rest before the first change. A
// stop waits for neither.
TEST_F(Record, ReadsWhatIsFoundBehindTheFirstWindowAndBeforeTheFirstChange) {
    const auto reads = [this] { return m_drive.TakeLog({QStringLiteral("read")}).size(); };
    int cost = 20;
    m_drive.onCall = [&](const QString& call) { m_clock.Sleep(call.startsWith(QLatin1String("read")) ? cost : 0); };
    m_recording->Begin();
    Pass(500);
    m_recording->Drive().StopMotor();
    EXPECT_EQ(reads(), 0);
    QWidget window;
    window.grab(); // paints it
    Pass(1000);
    const qsizetype turns = reads();
    EXPECT_TRUE(turns >= 20 && turns <= 30) << turns << " reads: half of the time";
    m_recording->Link().Announce(std::array<quint16, 1>{9902});
    Pass(1000);
    EXPECT_EQ(reads(), 0) << "a page is reading";
    cost = 0;
    quint16 word = 0;
    m_recording->Link().ReadWord(9902, word);
    m_drive.onCall = [&](const QString& call) {
        if (call.startsWith(QLatin1String("write"))) {
            EXPECT_EQ(Ask("SELECT count(*) FROM value").value(0).toInt(), int(ShippedParameters().size()));
        }
    };
    m_recording->Link().WriteWord(9902, 250);
    m_drive.onCall = {};
    EXPECT_EQ(reads(), qsizetype(ShippedParameters().size()) - turns);
    EXPECT_EQ(Ask("SELECT old_word || ' ' || word FROM event JOIN value USING (register)"), QStringList("240 240"));
}

// Another program holds the file: nobody waits for longer than half a second, once; a stop not at all. Nothing is lost.
TEST_F(Record, OfASlowDiskIsToldOnceAndHoldsNobodyUp) {
    EXPECT_TRUE(m_recording->Drive().ResetFault());
    ASSERT_TRUE(Execute("BEGIN EXCLUSIVE"));
    QElapsedTimer timer;
    timer.start();
    m_recording->Drive().StopMotor();
    EXPECT_LT(timer.elapsed(), 200) << "a stop";
    m_recording->Drive().CloseContactor();
    EXPECT_LT(timer.restart(), 2000) << "the first that waits";
    for (int i = 0; i < 20; ++i)
        m_recording->Link().WriteWord(9902, quint16(i));
    EXPECT_LT(timer.elapsed(), 400) << "the others";
    EXPECT_EQ(m_complaints.size(), 1) << m_complaints.join(u'\n').toStdString();
    ASSERT_TRUE(Execute("COMMIT"));
    m_recording.reset();
    m_writer.reset();
    EXPECT_EQ(Ask("SELECT kind, count(*) FROM event GROUP BY kind"), QStringList({"command 3", "late 1", "write 20"}));
    EXPECT_EQ(Ask("SELECT * FROM gap"), QStringList());
}

TEST_F(Record, ThatCannotBeWrittenIsToldOnceAndHasAMarkWhereSomethingIsMissing) {
    EXPECT_TRUE(m_recording->Link().WriteWord(9902, 249));
    ASSERT_TRUE(Execute("CREATE TRIGGER full BEFORE INSERT ON event BEGIN SELECT RAISE(ABORT, 'no room'); END"));
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(m_recording->Link().WriteWord(9902, 250));
    EXPECT_EQ(m_drive.words[9902], 250) << "the drive gets it all the same";
    EXPECT_EQ(m_complaints.size(), 1);
    EXPECT_TRUE(m_complaints.join(u'\n').contains(QLatin1String("no room"))) << m_complaints.join(u'\n').toStdString();
    EXPECT_TRUE(m_writer->HasGaps());
    ASSERT_TRUE(Execute("DROP TRIGGER full"));
    EXPECT_TRUE(m_recording->Link().WriteWord(9902, 251));
    EXPECT_EQ(Ask("SELECT new_word FROM event"), QStringList({"249", "251"}));
    EXPECT_EQ(Ask("SELECT sum(entries) >= 3, reason FROM gap"), QStringList("1 no room"));
}

TEST_F(Record, ThatTurnsOutToBeNoneIsToldOnceAndHoldsNobodyUp) {
    QFile file(m_path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(QByteArray(8192, 'x')) > 0);
    file.close();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(m_recording->Link().WriteWord(9902, 250));
    EXPECT_LT(timer.elapsed(), 400);
    EXPECT_TRUE(m_complaints.size() == 1 && m_complaints[0].contains(QLatin1String("not a database")))
        << m_complaints.join(u'\n').toStdString();
    EXPECT_TRUE(m_writer->HasGaps());
}

} // namespace
} // namespace krt550
