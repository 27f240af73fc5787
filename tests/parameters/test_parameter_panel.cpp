// The list of all parameters: what it shows, what it writes, and what it asks of the line.
#include "host/parameters/parameter_panel.h"
#include "host/parameters/parameter_view.h"
#include "tests/support/batching_link.h"
#include "tests/support/fake_drive.h"

#include <QAbstractItemModelTester>
#include <QTest>

namespace krt550 {
namespace {

/// A panel on a small drive, shown as one table, in stepped time.
class ParameterPanel : public testing::Test {
protected:
    void SetUp() override {
        m_panel.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_panel));
        m_panel.SetDrive(&m_link, m_parameters);
        Find<QCheckBox>("grouped")->setChecked(false);
        Pass(1500);
    }

    template <class Widget> Widget* Find(const char* name) { return m_panel.findChild<Widget*>(QLatin1String(name)); }
    CParameterView& View() { return *Find<CParameterView>("parameters"); }
    QString Line(const char* name) { return Find<QLabel>(name)->isVisible() ? Find<QLabel>(name)->text() : QString(); }
    QStringList Writes() { return m_drive.TakeLog({"write"}); }
    void Pass(qint64 milliseconds) {
        for (const qint64 end = m_clock.Now() + milliseconds; m_clock.Now() < end;)
            m_clock.WaitForEvents(end - m_clock.Now());
    }
    /// Numbers that stand in the first column.
    QString Shown() {
        QStringList shown;
        for (int row = 0; row < View().model()->rowCount(); ++row)
            shown.append(View().model()->index(row, 0).data().toString());
        return shown.join(u' ');
    }
    QModelIndex Value(const char* reg) {
        const QModelIndexList found = View().model()->match(View().model()->index(0, 0), Qt::DisplayRole, reg);
        return found.value(0).siblingAtColumn(int(ParameterColumn::Value));
    }
    QString Text(const char* reg) { return Value(reg).data().toString(); }
    /// What has the focus after F2: an editor, or the view.
    QWidget* Edit(const char* reg) {
        View().setFocus();
        View().setCurrentIndex(Value(reg));
        QTest::keyClick(&View(), Qt::Key_F2);
        Pass(1);
        return QApplication::focusWidget();
    }
    void Type(const char* reg, const char* text) {
        QTest::keyClicks(Edit(reg), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Pass(1);
    }

    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    std::vector<ParameterDescription> m_parameters = {
        Signal(104, "Speed actual", "rpm"), Bits(701, "Control word", false),
        WithDefault(Number(2005, "Maximum torque", 1, 0, 325, "%"), 100),
        WithDefault(Number(4307, "Integration time", 0, 0, 10000, "ms"), 50),
        List(9802, "Fieldbus", {{0, "None"}, {1, "PROFIBUS"}, {2, kExcludedValue}, {3, "Ethernet"}})};
    FakeDrive m_drive{m_parameters};
    CBatchingLink m_link{m_drive};
    CParameterPanel m_panel{QStringLiteral(KRT550_SOURCE_DIR "/data/Wzkrt550.txt")};
};

TEST_F(ParameterPanel, FindsByNumberNameTextAndChange) {
    const auto fatal = QAbstractItemModelTester::FailureReportingMode::Fatal;
    const QAbstractItemModelTester filter(View().model(), fatal);
    const QAbstractItemModelTester model(qobject_cast<QSortFilterProxyModel*>(View().model())->sourceModel(), fatal);
    struct {
        const char* search;
        const char* boxes; ///< that are ticked
        QString shown;
    } const cases[] = {{"2005", "", "20.05"},
                       {"20.05", "grouped", "20"},
                       {"INTEGRATION 4", "", "43.07"},
                       {"integration 20", "", ""},
                       {"ethernet", "grouped", "98"},
                       {"mounted for the fieldbus", "", "98.02"},
                       {"#excl", "", ""},
                       {"", "readOnlyHidden", "7.01 20.05 43.07 98.02"},
                       {"", "changedFromDefault", "20.05 98.02"},
                       {"", "changedSinceConnect", "1.04 20.05"},
                       {"", "changedSinceConnect readOnlyHidden", "20.05"},
                       {"9", "changedFromDefault", "98.02"}};
    m_drive.words[9802] = 3;
    m_panel.SetDrive(&m_link, m_parameters); // as connected
    Pass(1500);
    m_drive.words[104] = 77;
    m_drive.words[2005] = 1200;
    Pass(1500);
    for (const auto& c : cases) {
        Find<QLineEdit>("search")->setText(c.search);
        for (const char* box : {"grouped", "readOnlyHidden", "changedFromDefault", "changedSinceConnect"})
            Find<QCheckBox>(box)->setChecked(QLatin1String(c.boxes).contains(QLatin1String(box)));
        EXPECT_EQ(Shown(), c.shown) << c.search << ' ' << c.boxes;
    }
    QTemporaryDir directory;
    QSettings settings(directory.filePath("s"), QSettings::IniFormat);
    m_panel.SaveState(settings);
    CParameterPanel next{QString()};
    next.SetDrive(&m_link, m_parameters);
    next.RestoreState(settings);
    EXPECT_TRUE(next.findChild<QCheckBox*>("changedFromDefault")->isChecked());
    Find<QLineEdit>("search")->clear();
    View().sortByColumn(int(ParameterColumn::Value), Qt::DescendingOrder);
    View().selectAll();
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "98.02\tFieldbus\tEthernet\t\t\t\tNone\n"
                                                 "20.05\tMaximum torque\t120.0\t%\t0.0\t325.0\t100.0");
}

TEST_F(ParameterPanel, WritesWhatIsGoodAndDiffersOnce) {
    struct {
        const char* reg;
        const char* typed;
        QStringList writes;
        const char* shown;
        const char* error; ///< that begins so; the editor stays then
    } const cases[] = {{"20.05", "120,5", {"write 2005=1205"}, "120.5", ""},
                       {"20.05", "120.5", {}, "120.5", ""},
                       {"20.05", "325.1", {}, "120.5", "Parameter 20.05 Maximum torque: 325.1 is out of range"},
                       {"20.05", "1.55", {}, "120.5", "Parameter 20.05 Maximum torque: \"1.55\" cannot be used."},
                       {"7.01", "31h", {"write 701=49"}, "0031h", ""},
                       {"7.01", "0b101", {"write 701=5"}, "0005h", ""},
                       {"7.01", "10000h", {}, "0005h", "Parameter 7.01 Control word"}};
    for (const auto& c : cases) {
        Type(c.reg, c.typed);
        EXPECT_EQ(Writes(), c.writes) << c.typed;
        const auto* note = Find<QLabel>("valueNote");
        ASSERT_EQ(note != nullptr, *c.error != 0) << c.typed;
        EXPECT_TRUE(!note || note->text().startsWith(QLatin1String(c.error))) << c.typed;
        if (note)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(Text(c.reg), c.shown);
    }
    Edit("98.02");
    auto* list = View().findChild<QComboBox*>();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->count(), 3);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(list->view(), key);
    Pass(10);
    EXPECT_EQ(Writes(), QStringList("write 9802=3"));
    EXPECT_EQ(Edit("1.04"), &View());
    EXPECT_EQ(Line("message"), "1.04 Speed actual cannot be edited: the drive shows it only.");
    m_panel.SetCommands([](const ParameterDescription& parameter) {
        return parameter.reg == 701 ? QStringLiteral("a command") : QString();
    });
    EXPECT_EQ(Edit("7.01"), &View());
    EXPECT_TRUE(Line("message").endsWith("cannot be edited: a command."));
}

// What the drive has made of a value is read back, also when it has refused it.
TEST_F(ParameterPanel, ShowsTheOldValueAndTheReasonWhenTheDriveRefuses) {
    m_drive.unwritable = {2005};
    m_drive.onCall = [this](const QString& call) {
        if (call == "write 2005=1200")
            m_drive.words[2005] = 900; // what it had meanwhile
        if (call == "read 4307")
            m_drive.words[4307] = 60; // the nearest that it can do
    };
    Type("20.05", "120");
    EXPECT_EQ(Line("message"), "20.05 Maximum torque was not written: simulated failure");
    EXPECT_EQ(Text("20.05"), "90.0");
    Type("43.07", "64");
    EXPECT_EQ(Line("message"), "43.07 Integration time: the drive has made 60 of it.");
    EXPECT_EQ(Text("43.07"), "60");
}

// Esc stops a motor: only an open editor keeps it for itself. Leaving an editor writes nothing, and says so.
TEST_F(ParameterPanel, LeavesEscToTheWindow) {
    int stops = 0;
    QShortcut stop(QKeySequence(Qt::Key_Escape), &m_panel);
    QObject::connect(&stop, &QShortcut::activated, &m_panel, [&stops] { ++stops; });
    Edit("98.02");
    QTest::keyClick(View().findChild<QComboBox*>()->view(), Qt::Key_Escape);
    Pass(1);
    QTest::keyClicks(Edit("20.05"), "99");
    for (const int expected : {0, 1}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(stops, expected);
    }
    QTest::keyClicks(Edit("20.05"), "99");
    Find<QLineEdit>("search")->setFocus();
    EXPECT_EQ(Line("message"), "20.05 Maximum torque: \"99\" was not written. Enter writes what is typed.");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(std::pair(stops, Writes()), std::pair(2, QStringList()));
}

TEST_F(ParameterPanel, LeavesTheLineAloneWhileItIsSharedOrNobodyLooks) {
    EXPECT_EQ(m_link.TakeRequests().value(0), "fetch 104 701 2005 4307 9802");
    Edit("20.05");
    m_panel.SetShared(true);
    m_drive.TakeLog();
    EXPECT_EQ(Edit("20.05"), &View());
    Pass(60'000);
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    m_panel.SetShared(false);
    Pass(1);
    EXPECT_EQ(m_drive.TakeLog().size(), 5);
    m_panel.hide();
    Pass(5000);
    m_drive.TakeLog();
    Pass(60'000);
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    m_panel.SetDrive(nullptr, {});
    EXPECT_EQ(Shown(), "");
}

TEST_F(ParameterPanel, TellsOnceOfADriveThatDoesNotAnswerAndAsksLessOften) {
    const auto isGrey = [this] { return Value("43.07").data(Qt::ForegroundRole).isValid(); };
    m_drive.unreadable = {104}; // one alone is no dead line
    Pass(3000);
    EXPECT_EQ(std::pair(Line("linkState"), isGrey()), std::pair(QString(), false));
    m_drive.fails = [](const QString&) { return true; };
    Pass(3000);
    EXPECT_EQ(std::pair(Line("linkState"), isGrey()),
              std::pair(QString("The drive does not answer; values in grey may be old. simulated failure"), true));
    m_drive.TakeLog();
    Pass(20'000);
    EXPECT_EQ(m_drive.TakeLog().size(), 10);
    m_drive.fails = nullptr;
    Pass(5000);
    EXPECT_EQ(std::pair(Line("linkState"), isGrey()), std::pair(QString(), false));
}

} // namespace
} // namespace krt550
