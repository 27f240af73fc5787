// The list of all parameters: what it shows, what it writes, and what it asks of the line.
#include "tests/parameters/panel_fixture.h"

namespace krt550 {
namespace {

TEST_F(ParameterPanel, FindsByNumberNameTextAndChange) {
    CParameterModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QAbstractItemModelTester filterTester(View().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.SetParameters(m_parameters, CParameterTexts());
    model.TakeWord(1, 5);
    model.SetGrouped(false);
    struct {
        const char* search;
        bool isGrouped;
        const char* boxes; ///< that are ticked besides
        QString shown;     ///< with groups these
    } const cases[] = {{"2005", false, "", "2005"},
                       {"20.05", true, "", "20"},
                       {"4", false, "", "4307"},
                       {"INTEGRATION 43", false, "", "4307"},
                       {"integration 20", false, "", ""},
                       {"ethernet", true, "", "98"},
                       {"fieldbus adapter", false, "", ""},
                       {"mounted for the fieldbus", false, "", "9802"},
                       {"#excl", false, "", ""},
                       {"", false, "readOnlyHidden", "701 2005 4307 9802"},
                       {"", false, "changedFromDefault", "2005 9802"},
                       {"", false, "changedSinceConnect", "104 2005"},
                       {"", false, "changedSinceConnect readOnlyHidden", "2005"},
                       {"9", false, "changedFromDefault", "9802"},
                       {"", true, "", "1 7 20 43 98"}};
    m_drive.words[9802] = 3;
    m_panel.SetDrive(&m_link, m_parameters); // as connected
    Pass(1500);
    m_drive.words[104] = 77;
    m_drive.words[2005] = 1200;
    Pass(1500);
    for (const auto& c : cases) {
        Find<QLineEdit>("search")->setText(c.search);
        Find<QCheckBox>("grouped")->setChecked(c.isGrouped);
        for (const char* box : {"readOnlyHidden", "changedFromDefault", "changedSinceConnect"})
            Find<QCheckBox>(box)->setChecked(QLatin1String(c.boxes).contains(QLatin1String(box)));
        EXPECT_EQ(Shown(), c.shown) << c.search << ' ' << c.boxes;
    }
    Find<QCheckBox>("grouped")->setChecked(false);
    View().sortByColumn(int(ParameterColumn::Value), Qt::DescendingOrder);
    EXPECT_EQ(Shown(), "9802 2005 104 4307 701");
    View().selectAll();
    QTest::keyClick(&View(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().split('\n').value(1),
              "20.05\tMaximum torque\t120.0\t%\t0.0\t325.0\t100.0");
}

TEST_F(ParameterPanel, WritesWhatIsGoodAndDiffers) {
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
                       {"43.07", "12ms", {}, "50", "Parameter 43.07 Integration time: \"12ms\" cannot be used."},
                       {"7.01", "31h", {"write 701=49"}, "0031h", ""},
                       {"7.01", "0b101", {"write 701=5"}, "0005h", ""},
                       {"7.01", "10000h", {}, "0005h", "Parameter 7.01 Control word"}};
    m_drive.TakeLog();
    for (const auto& c : cases) {
        Type(c.reg, c.typed);
        EXPECT_EQ(Writes(), c.writes) << c.typed;
        const auto* note = Find<QLabel>("valueNote");
        EXPECT_EQ(note != nullptr, *c.error != 0) << c.typed;
        if (note) {
            EXPECT_TRUE(note->text().startsWith(QLatin1String(c.error))) << note->text().toStdString();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            Pass(1);
            EXPECT_FALSE(Find<QLabel>("valueNote"));
        }
        EXPECT_EQ(Text(c.reg), c.shown);
    }
    EXPECT_EQ(Line("message"), "");
}

TEST_F(ParameterPanel, OffersWhatMayBeChosenAndNothingOfWhatIsReadOnly) {
    auto* list = qobject_cast<QComboBox*>(Edit("98.02"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->count(), 3);
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    Pass(10);
    EXPECT_EQ(Writes(), QStringList("write 9802=3"));
    EXPECT_EQ(Text("98.02"), "Ethernet");
    EXPECT_EQ(Edit("1.04"), &View());
    EXPECT_EQ(Line("message"), "1.04 Speed actual cannot be edited: the drive shows it only.");
}

// What the drive has made of a value is read back, also when it has refused it.
TEST_F(ParameterPanel, ShowsTheOldValueAndTheReasonWhenTheDriveRefuses) {
    m_drive.unwritable = {2005};
    Type("20.05", "120");
    const QStringList log = m_drive.TakeLog();
    EXPECT_EQ(log.value(log.indexOf("write 2005=1200") + 1), "read 2005");
    EXPECT_EQ(Line("message"), "20.05 Maximum torque was not written: simulated failure");
    EXPECT_EQ(Text("20.05"), "100.0");
    m_drive.onCall = [this](const QString& call) {
        if (call == "read 4307")
            m_drive.words[4307] = 60; // the nearest that it can do
    };
    Type("43.07", "64");
    EXPECT_EQ(Line("message"), "43.07 Integration time: the drive has made 60 of it.");
    EXPECT_EQ(Text("43.07"), "60");
}

// Esc stops a motor: only an open editor keeps it for itself. Leaving an editor writes nothing, and says so.
TEST_F(ParameterPanel, LeavesEscToTheWindow) {
    int stops = 0;
    QShortcut stop(QKeySequence(Qt::Key_Escape), &m_panel);
    QObject::connect(&stop, &QShortcut::activated, &m_panel, [&stops] { ++stops; });
    QTest::keyClicks(Edit("20.05"), "99");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(std::pair(stops, Line("message")), std::pair(0, QString()));
    for (QWidget* idle : {static_cast<QWidget*>(&View()), static_cast<QWidget*>(Find<QLineEdit>("search"))}) {
        idle->setFocus();
        QTest::keyClick(idle, Qt::Key_Escape);
    }
    EXPECT_EQ(stops, 2);
    QTest::keyClicks(Edit("20.05"), "99");
    Find<QLineEdit>("search")->setFocus();
    EXPECT_EQ(Line("message"), "20.05 Maximum torque: \"99\" was not written. Enter writes what is typed.");
    EXPECT_EQ(Writes(), QStringList());
}

TEST_F(ParameterPanel, LeavesTheLineAloneWhileItIsShared) {
    Pass(1500);
    EXPECT_EQ(m_link.TakeRequests().value(0), "fetch 104 701 2005 4307 9802");
    Edit("20.05");
    m_panel.SetShared(true);
    m_drive.TakeLog();
    m_drive.words[4307] = 70;
    EXPECT_EQ(Edit("20.05"), &View());
    Pass(60'000);
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    m_panel.SetShared(false);
    Pass(1);
    EXPECT_EQ(m_drive.TakeLog().size(), 5);
    EXPECT_EQ(Text("43.07"), "70");
    m_panel.hide(); // and nothing that nobody looks at
    Pass(5000);
    m_drive.TakeLog();
    Pass(60'000);
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
    m_panel.SetDrive(nullptr, {});
    EXPECT_EQ(View().model()->rowCount(), 0);
}

TEST_F(ParameterPanel, TellsOnceOfADriveThatDoesNotAnswerAndAsksLessOften) {
    const QBrush grey = QApplication::palette().brush(QPalette::Active, QPalette::PlaceholderText);
    const auto isGrey = [&] { return Value("43.07").data(Qt::ForegroundRole).value<QBrush>() == grey; };
    m_drive.unreadable = {104}; // one alone is no dead line
    Pass(3000);
    EXPECT_EQ(Line("linkState"), "");
    EXPECT_FALSE(isGrey());
    m_drive.fails = [](const QString&) { return true; };
    Pass(3000);
    EXPECT_EQ(Line("linkState"), "The drive does not answer; values in grey may be old. simulated failure");
    EXPECT_TRUE(isGrey());
    m_drive.TakeLog();
    Pass(20'000);
    EXPECT_EQ(m_drive.TakeLog().size(), 10);
    m_drive.fails = nullptr;
    Pass(5000);
    EXPECT_EQ(Line("linkState"), "");
    EXPECT_FALSE(isGrey());
}

} // namespace
} // namespace krt550
