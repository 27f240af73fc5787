// A host with an event loop and without windows of its own, as a service with a tray icon is one.
#include "tests/support/fake_drive.h"
#include "tests/support/robot.h"

#include <QApplication>
#include <QTimer>

namespace krt550 {
namespace {

TEST(WindowlessHost, GoesOnAfterTheWizardsWindowWasClosed) {
    constexpr int kGoesOn = 42;
    QApplication::setQuitOnLastWindowClosed(true); // as it is unless a host says otherwise
    FakeDrive drive(WizardParameters());
    QTimer::singleShot(0, [&drive] {
        RunWizardWith(drive, [] { Robot::CloseWindow(); });
        // Whatever closing the window has brought about comes first.
        QCoreApplication::processEvents();
        QTimer::singleShot(0, [] { QCoreApplication::exit(kGoesOn); });
    });
    EXPECT_EQ(QCoreApplication::exec(), kGoesOn) << "closing the wizard's window ended the host's event loop";
}

} // namespace
} // namespace krt550
