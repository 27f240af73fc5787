// A drive that has nearly every register there can be: loading its description; opening the list of all its parameters,
// and a keystroke in its search, each up to the painted window.
#include "host/parameters/parameter_panel.h"
#include "hostlib/tolvbo32/drive_description.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QLineEdit>

#include <benchmark/benchmark.h>

namespace krt550 {
namespace {

std::vector<ParameterDescription> Read(QByteArray text) {
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    QStringList errors;
    return ReadDriveDescription(buffer, QStringLiteral("drive"), errors).value();
}

QByteArray ManyParameters() {
    QByteArray text("register\tname\tunit\tdata type\ttype\tdecimals\tminimum\tmaximum\tdefault\taccess\tvalues\n");
    for (int reg = 100; reg < 65'100; ++reg)
        text +=
            QByteArray::number(reg) + "\tParameter " + QByteArray::number(reg) +
            (reg % 4 ? "\tms\t8\t3\t1\t0.0\t6000.5\t12.5\trw\t\n" : "\t\t8\t4\t0\t0\t2\t1\trw\t0=Off;1=On;2=Both\n");
    return text;
}

void LoadDriveDescription(benchmark::State& state) {
    const QByteArray text = ManyParameters();
    for (auto _ : state)
        benchmark::DoNotOptimize(Read(text));
}
BENCHMARK(LoadDriveDescription)->Unit(benchmark::kMillisecond);

/// Answers at once.
class CZeroLink : public CParameterLink {
public:
    bool ReadWord(quint16, quint16& word) override {
        word = 0;
        return true;
    }
    bool WriteWord(quint16, quint16) override { return true; }
    QString LastErrorText() const override { return {}; }
};

void Paint(QWidget& panel) {
    panel.repaint();
    benchmark::DoNotOptimize(panel.grab());
}

void OpenParameterList(benchmark::State& state) {
    const std::vector<ParameterDescription> parameters = Read(ManyParameters());
    CZeroLink link;
    for (auto _ : state) {
        CParameterPanel panel(QStringLiteral(KRT550_SOURCE_DIR "/data/Wzkrt550.txt"));
        panel.show();
        panel.SetDrive(&link, parameters);
        Paint(panel);
    }
}
BENCHMARK(OpenParameterList)->Unit(benchmark::kMillisecond);

/// Argument: in groups, or as one table. Two keystrokes in turn: many found, and nearly all.
void FilterParameterList(benchmark::State& state) {
    CZeroLink link;
    CParameterPanel panel(QStringLiteral(KRT550_SOURCE_DIR "/data/Wzkrt550.txt"));
    panel.show();
    panel.SetDrive(&link, Read(ManyParameters()));
    panel.findChild<QCheckBox*>(QStringLiteral("grouped"))->setChecked(state.range(0) != 0);
    auto* search = panel.findChild<QLineEdit*>(QStringLiteral("search"));
    bool many = false;
    for (auto _ : state) {
        search->setText(many ? QStringLiteral("p") : QStringLiteral("on"));
        many = !many;
        Paint(panel);
    }
}
BENCHMARK(FilterParameterList)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace krt550
