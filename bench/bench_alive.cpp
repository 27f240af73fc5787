// How soon the wizard answers while the drive is slow: prints one table for each time that a drive call takes.
//   bench_alive [MS...]      without times: 0 5 20 100
// Real time throughout; the clicks come from another thread, at moments of a fixed seed.
#include "bench/line_drive.h"
#include "bench/person.h"
#include "tests/assistants/procedures.h"
#include "tests/support/yes_sayer.h"
#include "wizard/resources/control_ids.h"

#include <atomic>

namespace krt550 {
namespace {

constexpr int kRuns = 8;
constexpr int kPeriodMs = 300;

/// A run, and when the click that is to end it may come.
struct TimedRun {
    const char* name;
    int box;            ///< of its page on the start page
    const char* begins; ///< the call from which on the click may come
    quint16 goal;       ///< progress at which step 5 goes on to the fine tuning
    bool byHand = false;
};

const TimedRun kAllRuns[] = {
    {"step 3", 165, "read 801", 80},
    {"step 4", 166, "read 801", 80},
    {"step 5, test", 167, "read 801", 80},
    {"step 5, fine tuning", 167, "write 9906=14", 81},
    {"step 6", 168, "read 801", 80},
    {"step 7", 169, "read 801", 80},
    {"step 5, by hand", 167, "start motor", 80, true},
};

struct Reaction {
    double first = -1; ///< from the click to the first of the two below [ms]
    double mode = -1;  ///< to 9906 := 0
    double stop = -1;  ///< to StopMotor
};

Reaction React(const TimedRun& run, int callMs, unsigned seed) {
    std::mt19937 random(seed);
    const double moment = std::uniform_real_distribution<>(0, 500 + 12.0 * callMs)(random);
    CLineDrive drive(callMs);
    drive.wizardPath = BenchFiles(kPeriodMs).WizardPath();
    drive.goal = run.goal;
    drive.found = 2;
    drive.instant = true;
    Reaction reaction;
    std::atomic<double> clicked = -1;
    std::thread person;
    drive.noted = [&](const QString& call, double begin) {
        if (!person.joinable() && call == QLatin1String(run.begins)) {
            drive.instant = false;
            person = std::thread([&] {
                Pause(moment);
                clicked = drive.Now();
                QMetaObject::invokeMethod(
                    qApp, [] { PressIfThere(kCancel); }, Qt::QueuedConnection);
            });
        }
        if (clicked < 0)
            return;
        const double since = begin - clicked;
        if (reaction.mode < 0 && call == QLatin1String("write 9906=0"))
            reaction.mode = since;
        if (reaction.stop < 0 && call == QLatin1String("stop motor"))
            reaction.stop = since;
        if (reaction.first < 0 && std::max(reaction.mode, reaction.stop) >= 0)
            reaction.first = since;
    };
    CYesSayer clerk;
    RunWizardWith(drive, [&] {
        PressIfThere(run.box);
        PressIfThere(kNext);
        if (run.byHand) {
            Robot::ShowTab(1);
            for (const int id : {int(kIdLocalOrRemote), int(kIdCloseContactor), int(kIdStartMotor)})
                PressIfThere(id);
        } else {
            PressIfThere(kIdAutotuningStart);
        }
        Pass(run.byHand ? moment + 20 * callMs + 100 : 1);
    });
    if (person.joinable())
        person.join();
    return reaction;
}

void MeasureReactions(int callMs) {
    std::printf("  From the click on Cancel [ms], %d runs    9906 := 0         StopMotor      first of both\n", kRuns);
    std::printf("  %-32s    median  maximum  median  maximum  median  maximum\n", "");
    for (const TimedRun& run : kAllRuns) {
        std::vector<double> first;
        std::vector<double> mode;
        std::vector<double> stop;
        for (int i = 0; i < kRuns; ++i) {
            const Reaction reaction = React(run, callMs, 1000U + unsigned(i));
            first.push_back(reaction.first);
            mode.push_back(reaction.mode);
            stop.push_back(reaction.stop);
        }
        std::printf("  %-32s", run.name);
        PrintTimes(mode);
        PrintTimes(stop);
        PrintTimes(first);
        std::printf("\n");
        std::fflush(stdout);
    }
}

void MeasureDeadTimes(int callMs) {
    std::printf("  Longest time that input waits during updates [ms], and reads of a pass\n");
    for (int step = 1; step <= int(std::size(kBoxes)); ++step) {
        CLineDrive drive(callMs);
        drive.wizardPath = BenchFiles(kPeriodMs).WizardPath();
        drive.instant = true;
        CYesSayer clerk;
        RunWizardWith(drive, [&] {
            PressIfThere(kBoxes[step - 1]);
            PressIfThere(kNext);
            Pass(kPeriodMs);
            drive.TakeLog();
            Pass(kPeriodMs + 100);
            const QStringList reads = drive.TakeLog({QStringLiteral("read")});
            drive.instant = false;
            const double dead = LongestDeadTime(2.0 * kPeriodMs + 60.0 * callMs);
            std::printf("  step %d %33.1f %8lld\n", step, dead, static_cast<long long>(reads.size()));
            std::fflush(stdout);
        });
    }
}

} // namespace
} // namespace krt550

int main(int argc, char** argv) {
    using namespace krt550;
    return MeasureEach(argc, argv, {"0", "5", "20", "100"}, [](const QString& time) {
        const int callMs = std::clamp(time.toInt(), 0, 10000);
        std::printf("\nA drive call takes %d ms\n", callMs);
        MeasureReactions(callMs);
        MeasureDeadTimes(callMs);
    });
}
