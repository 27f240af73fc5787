// A page with tabs: when they are made and loaded, what is written and refreshed, and the keys inside them.
#include "tests/shell/wizard_fixture.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/plain_page.h"
#include "wizard/shell/row_page.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_tab_page.h"
#include "wizard/shell/wizard_tab_sheet.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>

namespace krt550 {
namespace {

constexpr int kPageLayout = 9000;
constexpr int kFirstLayout = 9001;
constexpr int kSecondLayout = 9002;
constexpr int kPlaceholder = 940;
constexpr int kTabButton = 941;

constexpr RowDef kPageRow[] = {{.reg = 9902}};
constexpr RowDef kFirstRow[] = {{.reg = 9904}, {.reg = 2001}};
constexpr RowDef kSecondRow[] = {{.reg = 3009}};
constexpr RowGroupDef kPageGroups[] = {{.rows = kPageRow}};
constexpr RowGroupDef kFirstGroups[] = {{.rows = kFirstRow}};
constexpr RowGroupDef kSecondGroups[] = {{.rows = kSecondRow}};
constexpr PageRows kPageRows{.layout = kPageLayout, .groups = kPageGroups};
constexpr PageRows kFirstRows{.layout = kFirstLayout, .groups = kFirstGroups};
constexpr PageRows kSecondRows{.layout = kSecondLayout, .groups = kSecondGroups};

/// The module's resources, and the layouts of a page with two tabs.
class TabResources : public CModuleResources {
public:
    std::optional<DialogLayout> GetLayout(int number) const override {
        const bool page = number == kPageLayout;
        CLayoutBuilder layout(number, page ? kPageWidth : 400, page ? kPageHeight : 80, "Caption");
        RowGroupStyle style = kPageStyle;
        if (!page)
            for (int* x : {&style.columns.label, &style.columns.value, &style.columns.unit, &style.columns.minimum,
                           &style.columns.maximum})
                *x -= style.x;
        switch (number) {
        case kPageLayout:
            CRowStack(layout, kPageRows, style, 0, 100).AddGroup();
            layout.Add({.id = kPlaceholder, .kind = ControlKind::Placeholder, .rect = {20, 60, 10, 10}});
            return layout.BottomRow(true).Take();
        case kFirstLayout:
            CRowStack(layout, kFirstRows, style, 0, 100).AddGroup();
            return layout.Add({.id = kTabButton, .kind = ControlKind::PushButton, .rect = {4, 60, 60, 14}}).Take();
        case kSecondLayout:
            CRowStack(layout, kSecondRows, style, 0, 100).AddGroup();
            return layout.Take();
        default:
            return CModuleResources::GetLayout(number);
        }
    }
};

class CFirstTab : public CRowTabPage {
public:
    CFirstTab() : CRowTabPage(kFirstRows) {
        Handle(kTabButton, ControlEvent::Clicked, [this] { ++pressed; });
    }
    int pressed = 0;
    bool refreshes = true;
    bool RefreshValues() override { return refreshes; }
};

class CTabbedPage : public CRowPage {
public:
    CTabbedPage() : CRowPage(kPageRows, "1.htm") {
        CWizardTabSheet& tabs = UseTabs(kPlaceholder, {-6, -7});
        tabs.AddTab(first, "First");
        tabs.AddTab(second);
    }
    CFirstTab first;
    CRowTabPage second{kSecondRows};
    int paints = 0;
    using CRowPage::GetTabs;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

/// Three update periods, as another timer of that period sees them.
void LetUpdatesPass() {
    constexpr int kPeriodMs = 5;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(kPeriodMs);
    EXPECT_TRUE(Robot::WaitUntil([&ticks] { return ticks >= 3; }));
}

class Tabs : public WizardFixture {
protected:
    Tabs() {
        SetPageFactory([this](int index) -> std::unique_ptr<CWizardPropertyPage> {
            if (index != 1)
                return std::make_unique<CPlainPage>(101, "1.htm");
            auto page = std::make_unique<CTabbedPage>();
            m_page = page.get();
            return page;
        });
    }

    /// Runs the script with the page with tabs in front.
    void OnPage(const std::function<void()>& script) {
        CSheetWizard sheet(1, nullptr, 0);
        m_sheet = &sheet;
        sheet.SetDriveObject(&m_drive);
        const quint16 chain[] = {1};
        sheet.SetAssistantChain(chain);
        QTimer::singleShot(0, &sheet, [&] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(Robot::Front()));
            ShowPage();
            script();
            sheet.EndWizard(8);
        });
        EXPECT_EQ(sheet.DoModal(), 8);
    }
    void ShowPage() { EXPECT_TRUE(m_sheet->SetActivePage(1)); }
    void LeavePage() { EXPECT_TRUE(m_sheet->SetActivePage(0)); }
    QTabBar* Bar() { return m_page->GetTabs()->findChild<QTabBar*>(); }
    void ClickTab(int index) { QTest::mouseClick(Bar(), Qt::LeftButton, {}, Bar()->tabRect(index).center()); }

    TabResources m_resources;
    ResourceScope m_scope{m_resources};
    CSheetWizard* m_sheet = nullptr;
    CTabbedPage* m_page = nullptr;
};

TEST_F(Tabs, AreMadeByTheFirstActivationThatGetsARoot) {
    m_drive.hasRoot = false;
    OnPage([this] {
        EXPECT_FALSE(m_page->GetTabs()->isVisible());
        EXPECT_TRUE(m_page->ApplyParameters()) << "nothing to write";
        LeavePage();
        m_drive.hasRoot = true;
        ShowPage();
        EXPECT_TRUE(m_page->GetTabs()->isVisible());
        EXPECT_EQ(m_page->GetTabs()->pos(), m_page->GetDlgItem(kPlaceholder)->pos() - QPoint(6, 7));
        EXPECT_EQ(Bar()->tabText(0), "First");
        EXPECT_EQ(Bar()->tabText(1), "Caption");
        EXPECT_EQ(m_drive.TakeLog({"read"}), (QStringList{"read 9904", "read 2001", "read 9902"}));
        EXPECT_EQ(Robot::Text(LabelId(9904)), "9904 Motor 1 base speed");
    });
}

TEST_F(Tabs, AreReadWhenTheyComeToTheFrontOrThePageDoesWithThem) {
    OnPage([this] {
        m_drive.TakeLog();
        ClickTab(1);
        EXPECT_EQ(m_drive.TakeLog().mid(0, 1), (QStringList{"read 3009"}));
        LeavePage();
        m_drive.TakeLog();
        m_page->paints = 0;
        ShowPage();
        EXPECT_GT(m_page->paints, 0) << "before any timer can come";
        EXPECT_EQ(m_drive.TakeLog().mid(0, 2), (QStringList{"read 3009", "read 9902"})) << "only the tab in front";
        m_drive.words[9904] = 44;
        ClickTab(0);
        EXPECT_EQ(Robot::Text(ValueId(9904)), "44");
    });
}

// A tab in front follows the drive; a tab behind costs nothing.
TEST_F(Tabs, AreRefreshedInFrontOnly) {
    OnPage([this] {
        Robot::Control(kNext)->setFocus(); // what has the focus is not refreshed
        m_drive.words[9902] = 92;
        m_drive.words[9904] = 94;
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(ValueId(9904)) == "94"; }));
        EXPECT_EQ(Robot::Text(ValueId(9902)), "92") << "the page's own rows as well";
        ClickTab(1);
        m_drive.TakeLog();
        m_drive.words[3009] = 39;
        EXPECT_TRUE(Robot::WaitUntil([] { return Robot::Text(ValueId(3009)) == "39"; }));
        EXPECT_EQ(m_drive.TakeLog({"read 9904", "read 2001"}), QStringList());
        LeavePage();
        m_drive.TakeLog();
        LetUpdatesPass();
        EXPECT_EQ(m_drive.TakeLog({"read"}), QStringList()) << "nothing after the page is left";
    });
}

TEST_F(Tabs, WriteWhatWasChangedOnAnyOfThem) {
    OnPage([this] {
        Robot::Type(ValueId(2001), "7");
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
        Robot::Press(kApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 2001=7"})) << "a tab never shown has nothing";
        Robot::Type(ValueId(9904), "500");
        Robot::Type(ValueId(9902), "230");
        ClickTab(1);
        Robot::Type(ValueId(3009), "50");
        m_drive.unwritable.insert(9904);
        m_boxes.Expect("Writing parameter 99.04 Motor 1 base speed failed: simulated failure");
        Robot::Press(kNext);
        EXPECT_TRUE(m_page->isVisible()) << "a tab's failure keeps the page";
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9902=230", "write 9904=500", "write 3009=50"}));
    });
}

TEST_F(Tabs, StopTheUpdateOnceWhenTheyCannotBeRefreshed) {
    const QString stopped = "Error while updating parameters\n Stopping parameter update.";
    for (const bool rowFails : {true, false}) {
        OnPage([&] {
            if (rowFails) {
                m_boxes.Expect("Reading parameter 20.01 Motor 1 minimum speed failed: simulated failure");
                m_drive.unreadable.insert(2001);
            }
            m_page->first.refreshes = rowFails;
            const auto seen = m_boxes.Seen().count(stopped);
            m_boxes.Expect(stopped).WithIcon(QMessageBox::Critical);
            EXPECT_TRUE(Robot::WaitUntil([&] { return m_boxes.Seen().count(stopped) > seen; }));
            LetUpdatesPass();
            m_drive.TakeLog();
            LetUpdatesPass();
            EXPECT_EQ(m_drive.TakeLog(), QStringList()) << (rowFails ? "a row" : "RefreshValues");
            m_drive.unreadable.clear();
        });
    }
}

// Enter neither presses Next nor Escape closes the wizard where a person is busy with a tab.
TEST_F(Tabs, KeepEnterAndEscapeToThemselves) {
    OnPage([this] {
        const QList<QWidget*> places = {Robot::Control(ValueId(9904)), Robot::Control(kTabButton), Bar()};
        for (QWidget* place : places) {
            place->setFocus();
            ASSERT_EQ(QApplication::focusWidget(), place);
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
                QTest::keyClick(place, key);
            EXPECT_TRUE(m_page->isVisible());
            EXPECT_TRUE(Robot::Front());
        }
        EXPECT_EQ(m_page->first.pressed, 0);
        auto* next = qobject_cast<QPushButton*>(Robot::Control(kNext));
        EXPECT_TRUE(next->isDefault());
        QWidget* own = Robot::Control(ValueId(9902));
        own->setFocus();
        QTest::keyClick(own, Qt::Key_Return);
        EXPECT_FALSE(m_page->isVisible()) << "in the page's own edit it does what it does in dialogs";
    });
}

TEST_F(Tabs, HaveF1ForTheHelpButtonOfTheirPage) {
    OnPage([] {
        int helps = 0;
        QObject::connect(static_cast<QPushButton*>(Robot::Control(kHelp)), &QPushButton::clicked, Robot::Front(),
                         [&helps] { ++helps; });
        for (const int id : {ValueId(9904), kTabButton, ValueId(9902), kNext}) {
            Robot::Control(id)->setFocus();
            QTest::keyClick(Robot::Control(id), Qt::Key_F1);
        }
        EXPECT_EQ(helps, 4);
    });
}

} // namespace
} // namespace krt550
