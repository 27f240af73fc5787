// Linked into a program whose start-up is measured: prints the time from START (nanoseconds of the epoch, in the
// environment) to the first painted window, the resident memory then and the window's size, and ends the process.
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

long ResidentKilobytes() {
    long pages = 0;
    long resident = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2)
            resident = 0;
        std::fclose(file);
    }
    return resident * sysconf(_SC_PAGESIZE) / 1024;
}

class CFirstPaint : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // A window that its children cover is not painted itself.
        if (event->type() == QEvent::Paint && watched->isWidgetType())
            QMetaObject::invokeMethod(
                this, [this, size = static_cast<QWidget*>(watched)->window()->size()] { Report(size); },
                Qt::QueuedConnection);
        return false;
    }

private:
    void Report(QSize window) {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        const long long start = std::atoll(qgetenv("START").constData());
        const long long passed = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() - start;
        std::printf("%lld %ld %d %d\n", passed / 1000, ResidentKilobytes(), window.width(), window.height());
        std::fflush(stdout);
        std::_Exit(0);
    }
};

void WatchFirstPaint() {
    qApp->installEventFilter(new CFirstPaint(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchFirstPaint)
