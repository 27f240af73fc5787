#pragma once

#include "tests/shell/wizard_fixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

/// What the benchmarks of a wizard at work share: a person who clicks from another thread, and how long that takes.
namespace krt550 {

inline void Pause(double milliseconds) {
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
}

/// Lets the event loop run.
inline void Pass(double milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(std::chrono::milliseconds(1 + int(milliseconds)), &loop, &QEventLoop::quit);
    loop.exec();
}

/// Median and maximum, in the width of a column.
inline void PrintTimes(std::vector<double> times) {
    std::erase_if(times, [](double time) { return time < 0; });
    std::ranges::sort(times);
    if (times.empty())
        std::printf("%9s %8s", "-", "-");
    else
        std::printf("%9.1f %8.1f", times[times.size() / 2], times.back());
}

/// The longest time that an event from outside has waited for the thread of the windows [ms].
inline double LongestDeadTime(double milliseconds) {
    std::atomic<bool> ends = false;
    std::atomic<bool> handled = true;
    double longest = 0;
    QElapsedTimer time;
    time.start();
    std::thread pulse([&] {
        while (!ends) {
            Pause(1);
            if (!handled.exchange(false))
                continue;
            const qint64 posted = time.nsecsElapsed();
            QMetaObject::invokeMethod(
                qApp,
                [&, posted] {
                    longest = std::max(longest, double(time.nsecsElapsed() - posted) / 1e6);
                    handled = true;
                },
                Qt::QueuedConnection);
        }
    });
    Pass(milliseconds);
    ends = true;
    pulse.join();
    QCoreApplication::sendPostedEvents();
    return longest;
}

inline constexpr int kBoxes[] = {160, 164, 165, 166, 167, 168, 169}; ///< of the start page, steps 1 to 7

/// Texts with such an update period for every step.
inline const WizardFiles& BenchFiles(int periodMs) {
    static const WizardFiles files([periodMs] {
        QByteArray text = "SLIDERVAL\t9\t2306\t50\nSLIDERVAL\t10\t2311\t60\n";
        for (int step = 1; step <= 7; ++step)
            text += "UPDATE\t" + QByteArray::number(step) + "\t" + QByteArray::number(periodMs) + "\n";
        return text;
    }());
    return files;
}

/// The program: measures for each of its arguments, or of `otherwise` when there are none.
inline int MeasureEach(int argc, char** argv, const QStringList& otherwise,
                       const std::function<void(const QString&)>& measure) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    for (const QString& argument : arguments.isEmpty() ? otherwise : arguments)
        measure(argument);
    return 0;
}

} // namespace krt550
