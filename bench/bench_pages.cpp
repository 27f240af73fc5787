// What a page costs: finding parameters, coming to the front, one update pass. The drive answers at once.
#include "bench/wizard_bench.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_tree.h"
#include "wizard/params/cyclic_update.h"

#include <benchmark/benchmark.h>

namespace krt550 {
namespace {

void FindInTree(benchmark::State& state) {
    std::vector<ParameterDescription> parameters;
    for (int i = 0; i < state.range(0); ++i) {
        ParameterDescription parameter;
        parameter.reg = static_cast<quint16>(101 + i);
        parameters.push_back(parameter);
    }
    const auto root = BuildParameterTree(parameters, nullptr);
    std::vector<QString> texts;
    for (const ParameterDescription& parameter : parameters)
        texts.push_back(QString::number(parameter.reg));
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(root->FindChildByRegister(texts[next]));
        next = (next + 7919) % texts.size();
    }
}
BENCHMARK(FindInTree)->Arg(100)->Arg(1000)->Arg(10000);

void FirstActivationOfStep1(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto wizard = std::make_unique<BenchWizard>();
        state.ResumeTiming();
        wizard->Show(1);
        state.PauseTiming();
        wizard.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(FirstActivationOfStep1)->Unit(benchmark::kMillisecond);

void LaterActivationOfStep1(benchmark::State& state) {
    BenchWizard wizard;
    wizard.Show(1);
    for (auto _ : state) {
        state.PauseTiming();
        wizard.Show(0);
        state.ResumeTiming();
        wizard.Show(1);
    }
}
BENCHMARK(LaterActivationOfStep1)->Unit(benchmark::kMillisecond);

void UpdatePassOfStep1(benchmark::State& state) {
    BenchWizard wizard;
    wizard.Show(1);
    int timer = 0;
    for (auto _ : state) {
        UpdateParameters(wizard.GetPage(1), timer);
        while (IsUpdatePassOn())
            QCoreApplication::processEvents();
    }
}
BENCHMARK(UpdatePassOfStep1)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace krt550
