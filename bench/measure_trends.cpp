// measure_trends [SECONDS]: CPU time and memory of eight signals at 20 samples a second with an hour of history, drawn
// over 60 s and over 1 h, and sampled with the chart hidden. In real time; every part takes SECONDS (30).
#include "host/trends/trend_chart.h"
#include "host/trends/trend_history.h"
#include "host/trends/trend_sampler.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QtWidgets>

#include <cmath>
#include <cstdio>
#include <ctime>

using namespace krt550;

namespace {

constexpr int kSamplesOfAnHour = kTrendHistorySeconds * 20;

/// Registers that swing, each at its own pace, with some noise.
class CSwingingLink : public CParameterLink {
public:
    static double Value(quint16 reg, qint64 ms) {
        return 1000 * std::sin(double(ms) / (3000.0 + 40 * reg)) + double((ms * 7919 + reg) % 41);
    }
    bool ReadWord(quint16 reg, quint16& word) override {
        ++reads;
        word = static_cast<quint16>(static_cast<qint16>(Value(reg, CClock::Current().Now())));
        return true;
    }
    bool WriteWord(quint16, quint16) override { return false; }
    QString LastErrorText() const override { return {}; }

    int reads = 0;
};

double CpuSeconds() {
    return double(std::clock()) / CLOCKS_PER_SEC;
}

double MemoryMb() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').front().toDouble() / 1024;
    return 0;
}

int Measure(double seconds) {
    const double memoryBefore = MemoryMb();
    CTrendHistory history;
    std::vector<ParameterDescription> parameters;
    // Four strips of two curves.
    for (int i = 0; i < int(kMostTrendSignals); ++i) {
        ParameterDescription parameter;
        parameter.reg = static_cast<quint16>(101 + i);
        parameter.name = QStringLiteral("Signal %1").arg(i);
        parameter.unit = QStringLiteral("U%1").arg(i / 2);
        parameter.dataType = DataType::Signed16;
        parameters.push_back(parameter);
    }
    history.Choose(parameters);
    const qint64 now = CClock::Current().Now();
    // Two hours, the first of which has been dropped when the second is there.
    for (int i = -2 * kSamplesOfAnHour; i < 0; ++i)
        for (std::size_t place = 0; place < kMostTrendSignals; ++place)
            history.Add(place, now + 50 * i, CSwingingLink::Value(parameters[place].reg, now + 50 * i));
    const double memoryWithHour = MemoryMb();
    CTrendChart chart(history);
    chart.resize(1000, 600);
    chart.show();
    CSwingingLink link;
    CTrendSampler sampler(history);
    sampler.SetLink(&link);
    QTextStream out(stdout);
    for (const int window : {60, 3600, 0}) {
        chart.setVisible(window > 0);
        chart.SetWindow(window > 0 ? window : 60);
        link.reads = 0;
        int frames = 0;
        const auto counting = QObject::connect(&chart, &QCustomPlot::afterReplot, [&frames] { ++frames; });
        QElapsedTimer elapsed;
        elapsed.start();
        const double before = CpuSeconds();
        QEventLoop loop;
        QTimer::singleShot(int(seconds * 1000), &loop, &QEventLoop::quit);
        loop.exec();
        const double took = double(elapsed.elapsed()) / 1000;
        const QString name = window > 0 ? QStringLiteral("window of %1 s").arg(window) : QStringLiteral("hidden");
        out << QStringLiteral("%1 %2 samples/s a signal, %3 pictures/s, %4 % of a core\n")
                   .arg(name, -18)
                   .arg(link.reads / took / double(kMostTrendSignals), 0, 'f', 1)
                   .arg(frames / took, 0, 'f', 1)
                   .arg(100 * (CpuSeconds() - before) / took, 0, 'f', 1);
        out.flush();
        QObject::disconnect(counting);
    }
    out << QStringLiteral("history of an hour %1 MB, with the chart %2 MB\n")
               .arg(memoryWithHour - memoryBefore, 0, 'f', 1)
               .arg(MemoryMb() - memoryBefore, 0, 'f', 1);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    return Measure(arguments.size() > 1 ? arguments[1].toDouble() : 30);
}
