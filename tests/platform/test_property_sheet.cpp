#include "tests/platform/test_resources.h"
#include "wizard/platform/message_queue.h"
#include "wizard/platform/property_page.h"
#include "wizard/platform/property_sheet.h"

#include <QTest>

namespace krt550 {
namespace {

/// A page that writes its hooks into a log shared with the others.
class CLoggingPage : public CPropertyPage {
public:
    CLoggingPage(QString name, QString& log) : CPropertyPage(TestResources::kLayout), m_name(name), m_log(log) {}
    bool staysInFront = false;

protected:
    bool OnInitDialog() override { return Log("init", SetTimer(1, 1000) == 1); }
    bool OnSetActive() override { return Log(isVisible() ? "active (visible)" : "active", true); }
    void OnShown() override { Log(isVisible() ? "shown" : "shown (hidden)", true); }
    bool OnKillActive() override { return Log("kill", !staysInFront); }
    void OnDestroy() override { Log(KillTimer(1) ? "destroy (ticking)" : "destroy", true); }

private:
    bool Log(const char* what, bool result) {
        m_log += m_name + " " + what + "; ";
        return result;
    }
    QString m_name;
    QString& m_log;
};

class PropertySheet : public testing::Test {
protected:
    PropertySheet() {
        m_sheet.AddPage(&m_first);
        m_sheet.AddPage(&m_second);
        m_second.SetTabText("Second");
    }
    QString TakeLog() { return std::exchange(m_log, {}); }

    TestResources m_resources;
    ResourceScope m_scope{m_resources};
    QString m_log;
    CLoggingPage m_first{"A", m_log};
    CLoggingPage m_second{"B", m_log};
    CPropertySheet m_sheet{"Sheet"};
};

TEST_F(PropertySheet, RunsThePagesHooksInOrder) {
    m_sheet.SetWizardMode();
    QTimer::singleShot(0, &m_sheet, [this] {
        DrainMessageQueue();
        EXPECT_EQ(TakeLog(), "A init; A active; A shown; ");
        EXPECT_TRUE(m_sheet.SetActivePage(1));
        EXPECT_EQ(TakeLog(), "A kill; B init; B active; B shown; ");
        EXPECT_TRUE(m_sheet.SetActivePage(0));
        EXPECT_EQ(TakeLog(), "B kill; A active; A shown; ") << "a window is made once";
        EXPECT_FALSE(m_sheet.SetActivePage(32));
        EXPECT_EQ(TakeLog(), "");
        m_first.staysInFront = true;
        EXPECT_FALSE(m_sheet.SetActivePage(1));
        EXPECT_EQ(TakeLog(), "A kill; ");
        EXPECT_EQ(m_sheet.GetActivePage(), &m_first);
        m_first.staysInFront = false;
        m_sheet.SetActivePage(1);
        TakeLog();
        m_sheet.EndDialog(8);
        EXPECT_EQ(TakeLog(), "B destroy; A destroy; ") << "at once, and the page in front first: its run has to end";
        m_sheet.EndDialog(9);
        EXPECT_FALSE(m_sheet.SetActivePage(1)) << "a closing sheet shows no page again";
        EXPECT_EQ(TakeLog(), "");
    });
    EXPECT_EQ(m_sheet.DoModal(), 8);
}

// Keys must never go to a page that is not to be seen.
TEST_F(PropertySheet, GivesTheFocusToTheFirstControlOfThePageInFrontThatTakesIt) {
    m_sheet.SetWizardMode();
    QTimer::singleShot(0, &m_sheet, [this] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(QApplication::activeModalWidget()));
        EXPECT_EQ(QApplication::focusWidget(), m_first.GetDlgItem(TestResources::kEdit));
        m_first.GetDlgItem(TestResources::kButton)->setFocus();
        m_sheet.SetActivePage(1);
        EXPECT_EQ(QApplication::focusWidget(), m_second.GetDlgItem(TestResources::kEdit));
        m_first.GetDlgItem(TestResources::kEdit)->setEnabled(false);
        m_second.GetDlgItem(TestResources::kEdit)->hide();
        for (CLoggingPage* page : {&m_first, &m_second}) {
            m_sheet.SetActivePage(page == &m_first ? 0 : 1);
            EXPECT_EQ(QApplication::focusWidget(), page->GetDlgItem(TestResources::kOtherEdit));
        }
        m_sheet.EndDialog(8);
    });
    m_sheet.DoModal();
}

/// A window with a place for a child sheet.
class CParentWindow : public CWindow {
public:
    CParentWindow() : CWindow(TestResources::kParentLayout) { Create(); }
};

TEST_F(PropertySheet, SwitchesTabsAsAChild) {
    CParentWindow parent;
    m_sheet.CreateChild(parent, TestResources::kPlaceholder, {-6, -7});
    parent.show();
    DrainMessageQueue();
    EXPECT_EQ(TakeLog(), "A init; A active; A shown; ");
    EXPECT_EQ(m_sheet.pos(), parent.GetDlgItem(TestResources::kPlaceholder)->pos() - QPoint(6, 7));
    auto* tabs = m_sheet.findChild<QTabBar*>();
    ASSERT_TRUE(tabs);
    ASSERT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(0), "Test") << "the layout's caption";
    EXPECT_EQ(tabs->tabText(1), "Second");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    EXPECT_EQ(TakeLog(), "A kill; B init; B active; B shown; ");
    m_second.staysInFront = true;
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
    EXPECT_EQ(tabs->currentIndex(), 1) << "the tab stays with its page";
    m_sheet.setParent(nullptr);
}

TEST_F(PropertySheet, IsAsLargeAsItsLargestPageAndItsTabsNeed) {
    CParentWindow parent;
    CPropertyPage large(TestResources::kLargeLayout);
    CPropertySheet single;
    CPropertyPage alone(TestResources::kLayout);
    CPropertyPage missing(4711);
    m_sheet.AddPage(&large);
    m_sheet.AddPage(&missing);
    single.AddPage(&alone);
    m_sheet.CreateChild(parent, TestResources::kPlaceholder);
    single.CreateChild(parent, TestResources::kPlaceholder);
    parent.show();
    auto* tabs = m_sheet.findChild<QTabBar*>();
    for (const int index : {0, 2}) {
        ASSERT_TRUE(m_sheet.SetActivePage(index));
        const CPropertyPage& page = *m_sheet.GetActivePage();
        const QRect inside(page.mapTo(&m_sheet, QPoint()), page.size());
        EXPECT_TRUE(m_sheet.rect().contains(inside) && !tabs->geometry().intersects(inside)) << index;
    }
    EXPECT_FALSE(m_sheet.SetActivePage(3)) << "it has no layout";
    EXPECT_EQ(m_sheet.GetActivePage(), &large);
    EXPECT_LT(m_sheet.width(), large.width() + 12);
    EXPECT_LT(m_sheet.height(), m_first.height() + tabs->height() + 12);
    EXPECT_FALSE(single.findChild<QTabBar*>()->isVisible()) << "nothing to switch";
    EXPECT_LT(single.height(), alone.height() + 12);
    m_sheet.setParent(nullptr);
    single.setParent(nullptr);
}

TEST_F(PropertySheet, TakesThePlaceholdersPlaceInTheTabOrder) {
    CParentWindow parent;
    m_sheet.CreateChild(parent, TestResources::kPlaceholder);
    parent.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    auto* tabs = m_sheet.findChild<QTabBar*>();
    const auto walk = [&] {
        QStringList order;
        parent.GetDlgItem(TestResources::kEditBefore)->setFocus();
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* focus = QApplication::focusWidget();
            order.append(focus == tabs ? QString("tabs") : focus->objectName());
        }
        return order.join(' ');
    };
    EXPECT_EQ(walk(), "tabs 1 4 2 3 12 11");
    m_first.GetDlgItem(TestResources::kOtherEdit)->setFocus();
    m_sheet.SetActivePage(1);
    EXPECT_EQ(QApplication::focusWidget(), m_second.GetDlgItem(TestResources::kEdit)) << "in the tab, as before";
    EXPECT_EQ(walk(), "tabs 1 4 2 3 12 11") << "on the page made later, too";
    tabs->setFocus();
    m_sheet.SetActivePage(0);
    EXPECT_EQ(QApplication::focusWidget(), tabs) << "who walks the tabs goes on with that";
    m_sheet.setParent(nullptr);
}

} // namespace
} // namespace krt550
