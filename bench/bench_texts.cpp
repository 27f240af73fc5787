// The wizard text file: loading it, and asking for a text; and loading a drive description.
#include "bench/generated_texts.h"
#include "hostlib/tolvbo32/drive_description.h"
#include "wizard/texts/wizard_directory.h"
#include "wizard/texts/wizard_text_store.h"

#include <QBuffer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace krt550 {
namespace {

/// Directory with a generated file of so many megabytes: made once, gone with the process.
QString DirectoryOf(int megabytes) {
    static std::map<int, std::unique_ptr<QTemporaryDir>> directories;
    auto& directory = directories[megabytes];
    if (!directory) {
        directory = std::make_unique<QTemporaryDir>();
        WriteGeneratedTexts(directory->path(), qint64{megabytes} * 1'000'000);
    }
    return directory->path();
}

void LoadTextFile(benchmark::State& state) {
    const QString directory = DirectoryOf(static_cast<int>(state.range(0)));
    SetWizardDirectory(directory);
    for (auto _ : state) {
        auto store = std::make_unique<CWizardTextStore>();
        benchmark::DoNotOptimize(store->EnsureWizardTexts());
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * QFileInfo(directory + QStringLiteral("/Wzkrt550.txt")).size());
}
BENCHMARK(LoadTextFile)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// A drive that has nearly every register there can be.
void LoadDriveDescription(benchmark::State& state) {
    QByteArray text("register\tname\tunit\tdata type\ttype\tdecimals\tminimum\tmaximum\tdefault\taccess\tvalues\n");
    for (int reg = 100; reg < 65'100; ++reg)
        text +=
            QByteArray::number(reg) + "\tParameter " + QByteArray::number(reg) +
            (reg % 4 ? "\tms\t8\t3\t1\t0.0\t6000.5\t12.5\trw\t\n" : "\t\t8\t4\t0\t0\t2\t1\trw\t0=Off;1=On;2=Both\n");
    for (auto _ : state) {
        QBuffer buffer(&text);
        buffer.open(QIODevice::ReadOnly);
        QStringList errors;
        benchmark::DoNotOptimize(ReadDriveDescription(buffer, QStringLiteral("drive"), errors).value());
    }
}
BENCHMARK(LoadDriveDescription)->Unit(benchmark::kMillisecond);

void LookUpText(benchmark::State& state) {
    SetWizardDirectory(DirectoryOf(1));
    CWizardTextStore store;
    quint16 reg = 101;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.GetToolTip(reg));
        reg = static_cast<quint16>(reg < 2000 ? reg + 7 : 101);
    }
}
BENCHMARK(LookUpText);

void LookUpValueText(benchmark::State& state) {
    SetWizardDirectory(DirectoryOf(1));
    CWizardTextStore store;
    QString text;
    for (auto _ : state)
        benchmark::DoNotOptimize(store.GetValueText(QStringLiteral("401"), 3, text));
}
BENCHMARK(LookUpValueText);

} // namespace
} // namespace krt550
