// Modal windows over a host's window, and in a host that has none.
#include "tests/platform/test_resources.h"
#include "wizard/platform/dialog.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/message_queue.h"
#include "wizard/platform/property_page.h"
#include "wizard/platform/property_sheet.h"

#include <QTest>

namespace krt550 {
namespace {

class CHookedDialog : public CDialog {
public:
    CHookedDialog() : CDialog(TestResources::kLayout) {}
    int destroyed = 0;

protected:
    void OnDestroy() override { ++destroyed; }
};

class ModalWindows : public testing::Test {
protected:
    /// Each kind of modal window; shows it and returns when it was closed.
    struct Kind {
        const char* name;
        std::function<void()> show;
    };
    const std::vector<Kind> m_kinds = {
        {"dialog",
         [] {
             CHookedDialog dialog;
             EXPECT_EQ(dialog.DoModal(), CDialog::kCancel);
             EXPECT_EQ(dialog.destroyed, 1);
         }},
        {"property sheet",
         [] {
             CPropertyPage page(TestResources::kLayout);
             CPropertySheet sheet;
             sheet.AddPage(&page);
             EXPECT_EQ(sheet.DoModal(), CPropertySheet::kCancel);
         }},
        {"message box",
         [] { EXPECT_FALSE(ShowMessageBox("Turn the motor?", MessageIcon::None, MessageButtons::OkCancel)); }},
    };
    TestResources m_resources;
    ResourceScope m_scope{m_resources};
};

// The host may close and delete its window whenever it likes. The modal window above it is not the host's.
TEST_F(ModalWindows, OutliveTheHostsWindow) {
    for (const Kind& kind : m_kinds) {
        auto host = std::make_unique<QWidget>();
        host->show();
        host->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(host.get()));
        QTimer::singleShot(0, [&] {
            const QPointer<QWidget> front = QApplication::activeModalWidget();
            ASSERT_TRUE(front);
            EXPECT_EQ(front->parentWidget(), nullptr) << kind.name;
            EXPECT_EQ(front->windowHandle()->transientParent(), host->windowHandle()) << kind.name << " stays above";
            host.reset();
            DrainMessageQueue();
            ASSERT_TRUE(front && front->isVisible()) << kind.name;
            front->close();
        });
        kind.show();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << kind.name;
    }
}

// A host may have no window of its own, and still has its event loop.
TEST_F(ModalWindows, EndNobodysEventLoopWhenTheyAreClosed) {
    const bool former = QApplication::quitOnLastWindowClosed();
    QApplication::setQuitOnLastWindowClosed(true);
    for (const Kind& kind : m_kinds) {
        bool wentOn = false;
        QTimer::singleShot(0, qApp, [&] {
            QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
            kind.show();
            QTimer::singleShot(20, qApp, [&] {
                wentOn = true;
                QCoreApplication::quit();
            });
        });
        QCoreApplication::exec();
        EXPECT_TRUE(wentOn) << kind.name;
    }
    QApplication::setQuitOnLastWindowClosed(former);
}

// Whoever presses Enter without having read turns no motor.
TEST_F(ModalWindows, EnterSaysNoToAQuestion) {
    for (const MessageButtons buttons : {MessageButtons::Ok, MessageButtons::OkCancel}) {
        QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
        EXPECT_EQ(ShowMessageBox("Turn the motor?", MessageIcon::None, buttons), buttons == MessageButtons::Ok);
    }
}

} // namespace
} // namespace krt550
