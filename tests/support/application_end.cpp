#include "tests/support/application_end.h"

namespace krt550 {

void EndApplication() {
    QCoreApplication::exit();
}

void RestartApplication() {
    // Only a new main loop takes the request to quit back.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
}

} // namespace krt550
