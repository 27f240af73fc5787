#include "tests/platform/test_resources.h"
#include "tests/support/application_end.h"
#include "wizard/platform/message_queue.h"
#include "wizard/platform/property_page.h"
#include "wizard/platform/property_sheet.h"

#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace krt550 {
namespace {

/// A page that writes its hooks into a log shared with the others.
class CLoggingPage : public CPropertyPage {
public:
    CLoggingPage(QString name, QString& log) : CPropertyPage(TestResources::kLayout), m_name(name), m_log(log) {}
    bool staysInFront = false;

protected:
    bool OnInitDialog() override { return Log("init", true); }
    bool OnSetActive() override { return Log(isVisible() ? "active (visible)" : "active", true); }
    void OnShown() override { Log(isVisible() ? "shown" : "shown (hidden)", true); }
    bool OnKillActive() override { return Log("kill", !staysInFront); }
    void OnDestroy() override { Log("destroy", true); }

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
        m_sheet.EndDialog(8);
        EXPECT_EQ(TakeLog(), "A destroy; B destroy; ") << "at once, not when the loop returns";
        m_sheet.EndDialog(9);
        EXPECT_FALSE(m_sheet.SetActivePage(1)) << "a closing sheet shows no page again";
        EXPECT_EQ(TakeLog(), "");
    });
    EXPECT_EQ(m_sheet.DoModal(), 8);
}

// A handler that works for a long time and drains the queue meanwhile must see the window close under it, and unwind.
TEST_F(PropertySheet, ClosesUnderABlockingHandler) {
    struct {
        const char* name;
        std::function<void()> close;
    } const ways[] = {
        {"close button", [] { QApplication::activeModalWidget()->close(); }},
        {"end of the application", EndApplication},
    };
    for (const auto& way : ways) {
        TakeLog();
        bool unwound = false;
        QTimer::singleShot(0, &m_sheet, [&] {
            QTimer::singleShot(0, &m_sheet, way.close);
            for (int cycle = 0; cycle < 1000 && !m_sheet.IsClosing(); ++cycle)
                DrainMessageQueue();
            EXPECT_TRUE(m_sheet.IsClosing()) << way.name;
            EXPECT_TRUE(TakeLog().endsWith("A destroy; ")) << way.name;
            unwound = true;
        });
        EXPECT_EQ(m_sheet.DoModal(), CPropertySheet::kCancel) << way.name;
        EXPECT_TRUE(unwound) << way.name;
        RestartApplication();
    }
}

TEST_F(PropertySheet, SwitchesTabsAsAChild) {
    QWidget parent;
    m_sheet.CreateChild(&parent);
    parent.show();
    DrainMessageQueue();
    EXPECT_EQ(TakeLog(), "A init; A active; A shown; ");
    auto* tabs = m_sheet.findChild<QTabBar*>();
    ASSERT_TRUE(tabs);
    ASSERT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(1), "Second");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    EXPECT_EQ(TakeLog(), "A kill; B init; B active; B shown; ");
    m_second.staysInFront = true;
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
    EXPECT_EQ(tabs->currentIndex(), 1) << "the tab stays with its page";
    m_sheet.setParent(nullptr);
}

} // namespace
} // namespace krt550
