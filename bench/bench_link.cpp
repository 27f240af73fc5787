// The wizard on a drive at the other end of a wire: krt550sim behind a relay that takes its time.
//   bench_link [rtu|MS...]      without: rtu 1 5 20 50; MS is a TCP way there and back, rtu is 19200 baud
// Real time throughout. Each figure twice: on the link as it is, and with plain single reads.
#include "bench/person.h"
#include "tests/assistants/procedures.h"
#include "tests/link/simulator.h"
#include "tests/support/yes_sayer.h"

#include <random>

namespace krt550 {
namespace {

constexpr int kBaud = 19200;
constexpr int kPeriodMs = 1000;
constexpr int kClicks = 3;
constexpr int kStartButton = 60202;

/// Passes announcements on to nobody.
class CPlainLink : public CParameterLink {
public:
    explicit CPlainLink(CParameterLink& next) : m_next(next) {}
    bool ReadWord(quint16 reg, quint16& word) override { return m_next.ReadWord(reg, word); }
    bool WriteWord(quint16 reg, quint16 word) override { return m_next.WriteWord(reg, word); }
    QString LastErrorText() const override { return m_next.LastErrorText(); }

private:
    CParameterLink& m_next;
};

struct Wire {
    bool serial;
    double roundTripMs;
    bool plain;
};

/// A drive on such a wire, and when which request went onto it.
class CBenchLine {
public:
    explicit CBenchLine(const Wire& wire) : m_simulator(wire.serial, 1, wire.serial ? kBaud : 0) {
        m_time.start();
        m_simulator.GetRelay().SetRoundTrip(wire.roundTripMs);
        drive = m_simulator.Connect(BenchFiles(kPeriodMs).WizardPath());
        plain.emplace(drive->GetLink());
        if (wire.plain)
            drive->SetTreeLink(&*plain);
        m_simulator.GetRelay().Watch([this](bool isRequest, std::span<const quint8> pdu) {
            const double now = Now();
            if (!isRequest)
                lastAnswer = now;
            else if (!isMarked || now - lastAnswer > kPeriodMs / 3.0)
                firstRequest = now, requests = 1, isMarked = true;
            else
                ++requests;
            // 9906 := 0, or the stop.
            const bool stops =
                pdu.size() >= 5 && pdu[0] == 6 &&
                ((pdu[1] << 8 | pdu[2]) == 9906 ? (pdu[3] | pdu[4]) == 0 : pdu[4] == quint8(WireCommand::StopMotor));
            if (isRequest && stops && clicked >= 0 && stopped < 0)
                stopped = now;
            return true;
        });
    }

    double Now() const { return double(m_time.nsecsElapsed()) / 1e6; }
    /// Counts from here on; of what lies apart in time only the last burst.
    void Mark() { isMarked = false, requests = 0, firstRequest = lastAnswer = Now(); }
    double Took() const { return lastAnswer - firstRequest; }

    std::unique_ptr<CModbusDrive> drive;
    std::optional<CPlainLink> plain;
    std::atomic<int> requests = 0;
    std::atomic<bool> isMarked = false;
    std::atomic<double> firstRequest = 0;
    std::atomic<double> lastAnswer = 0;
    std::atomic<double> clicked = -1;
    std::atomic<double> stopped = -1;

private:
    CSimulator m_simulator;
    QElapsedTimer m_time;
};

struct PageFigures {
    int requests = 0;
    double activation = 0; ///< [ms], from the click to the page that is there
    int updateRequests = 0;
    double update = 0; ///< [ms]
    double dead = 0;   ///< the longest that a click waits while the page is updated [ms]
};

PageFigures MeasurePage(int box, const Wire& wire) {
    CBenchLine line(wire);
    CYesSayer clerk;
    PageFigures figures;
    RunWizardWith(*line.drive, [&] {
        PressIfThere(box);
        Pass(200);
        line.Mark();
        const double begin = line.Now();
        PressIfThere(kNext);
        figures.activation = line.Now() - begin;
        figures.requests = line.requests;
        // Two passes; the figures are those of the last burst.
        figures.dead = LongestDeadTime(2.5 * kPeriodMs);
        figures.updateRequests = line.requests;
        figures.update = line.Took();
    });
    return figures;
}

void MeasurePages(const Wire& grouped, const Wire& plain) {
    std::printf("  %-8s %19s %21s %21s %16s\n", "", "activation", "time [ms]", "update pass", "longest wait");
    std::printf("  %-8s %9s %9s %10s %10s %10s %10s %8s %7s\n", "page", "requests", "plain", "grouped", "plain",
                "requests", "plain", "grouped", "plain");
    for (int step = 1; step <= int(std::size(kBoxes)); ++step) {
        const PageFigures good = MeasurePage(kBoxes[step - 1], grouped);
        const PageFigures bad = MeasurePage(kBoxes[step - 1], plain);
        std::printf("  step %-3d %9d %9d %10.0f %10.0f %4d/%4.0fms %4d/%4.0fms %8.1f %7.1f\n", step, good.requests,
                    bad.requests, good.activation, bad.activation, good.updateRequests, good.update, bad.updateRequests,
                    bad.update, good.dead, bad.dead);
        std::fflush(stdout);
    }
}

/// From the click on Cancel to the first frame that ends the run [ms]; negative: none came.
double MeasureAbort(int box, const Wire& wire, unsigned seed) {
    std::mt19937 random(seed);
    CBenchLine line(wire);
    CYesSayer clerk;
    std::thread person;
    RunWizardWith(*line.drive, [&] {
        PressIfThere(box);
        PressIfThere(kNext);
        person = std::thread([&, moment = std::uniform_real_distribution<>(1000, 2500)(random)] {
            Pause(moment);
            line.clicked = line.Now();
            QMetaObject::invokeMethod(
                qApp, [] { PressIfThere(kCancel); }, Qt::QueuedConnection);
        });
        PressIfThere(kStartButton);
        Pass(100);
    });
    person.join();
    return line.stopped < 0 ? -1 : line.stopped - line.clicked;
}

void MeasureAborts(const Wire& grouped, const Wire& plain) {
    std::printf("  From the click on Cancel to the stop on the wire [ms], %d clicks, median and maximum\n", kClicks);
    for (const int step : {3, 4, 5}) {
        std::printf("  step %-3d", step);
        for (const Wire& wire : {grouped, plain}) {
            std::vector<double> times;
            for (int click = 0; click < kClicks; ++click)
                times.push_back(MeasureAbort(kBoxes[step - 1], wire, 100U * unsigned(step) + unsigned(click)));
            std::printf("   %s", wire.plain ? "plain" : "grouped");
            PrintTimes(times);
        }
        std::printf("\n");
        std::fflush(stdout);
    }
}

} // namespace
} // namespace krt550

int main(int argc, char** argv) {
    using namespace krt550;
    return MeasureEach(argc, argv, {"rtu", "1", "5", "20", "50"}, [](const QString& name) {
        const bool serial = name == QLatin1String("rtu");
        if (serial)
            std::printf("\nModbus RTU, %d baud\n", kBaud);
        else
            std::printf("\nModbus TCP, %s ms there and back\n", name.toLatin1().constData());
        const Wire grouped{serial, name.toDouble(), false};
        const Wire plain{serial, name.toDouble(), true};
        MeasurePages(grouped, plain);
        MeasureAborts(grouped, plain);
    });
}
