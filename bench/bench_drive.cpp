// What a run of the simulated drive costs, and what the wizard adds to it. All of it on a clock that is stepped, so
// that only work counts.
#include "bench/wizard_bench.h"
#include "drive/motor_sets.h"
#include "drive/registers.h"
#include "hostlib/tolvbo32/clock.h"
#include "wizard/resources/control_ids.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>

#include <benchmark/benchmark.h>

namespace krt550 {
namespace {

/// A stepped clock that counts the poll cycles of a run.
class CCycleClock : public CSteppedClock {
public:
    void Sleep(qint64 milliseconds) override {
        constexpr qint64 kCycleMs = 50;
        cycles += milliseconds == kCycleMs;
        CSteppedClock::Sleep(milliseconds);
    }
    int cycles = 0;
};

/// The field's run as the drive alone does it, asked every 50 ms.
void FieldRunOfTheDrive(benchmark::State& state) {
    double cycles = 0;
    for (auto _ : state) {
        CCycleClock clock;
        const ClockScope scope(clock);
        CSimulatedDrive drive(BenchDescription(), &DefaultMotorSet());
        drive.WriteRegister(reg::kServiceMode, 2);
        drive.TakeLocalControl();
        drive.CloseContactor();
        drive.StartMotor();
        while (drive.GetRegisters().GetWord(reg::kServiceMode) != 0) {
            clock.Sleep(50);
            drive.Poll();
        }
        cycles += clock.cycles;
    }
    state.counters["s per cycle"] =
        benchmark::Counter(cycles, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(FieldRunOfTheDrive)->Unit(benchmark::kMillisecond);

/// The same run with the wizard's page in front, every message box answered with OK.
void FieldRunOfTheWizard(benchmark::State& state) {
    double cycles = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CCycleClock clock;
        const ClockScope scope(clock);
        BenchWizard wizard;
        wizard.Show(3);
        QTimer answers;
        QObject::connect(&answers, &QTimer::timeout, [] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->button(QMessageBox::Ok)->click();
        });
        answers.start(20);
        state.ResumeTiming();
        wizard.GetPage(3).findChild<QAbstractButton*>(QString::number(kIdAutotuningStart))->click();
        state.PauseTiming();
        cycles += clock.cycles;
        state.ResumeTiming();
    }
    state.counters["s per cycle"] =
        benchmark::Counter(cycles, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(FieldRunOfTheWizard)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace krt550
