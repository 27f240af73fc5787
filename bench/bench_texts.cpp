// Asking for a text of the wizard text file, which compare_text_load.sh loads; and loading a drive description.
#include "bench/generated_texts.h"
#include "hostlib/tolvbo32/drive_description.h"
#include "wizard/texts/wizard_directory.h"
#include "wizard/texts/wizard_text_store.h"

#include <QBuffer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace krt550 {
namespace {

/// Directory with a generated file of a megabyte: made once, gone with the process.
QString Directory() {
    static const QTemporaryDir directory;
    if (!QFileInfo::exists(directory.filePath(QStringLiteral("Wzkrt550.txt"))))
        WriteGeneratedTexts(directory.path(), 1'000'000);
    return directory.path();
}

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
    SetWizardDirectory(Directory());
    CWizardTextStore store;
    quint16 reg = 101;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.GetToolTip(reg));
        reg = static_cast<quint16>(reg < 2000 ? reg + 7 : 101);
    }
}
BENCHMARK(LookUpText);

void LookUpValueText(benchmark::State& state) {
    SetWizardDirectory(Directory());
    CWizardTextStore store;
    QString text;
    for (auto _ : state)
        benchmark::DoNotOptimize(store.GetValueText(QStringLiteral("401"), 3, text));
}
BENCHMARK(LookUpValueText);

} // namespace
} // namespace krt550
