// The list of all parameters of a drive that has nearly every register there can be: opening it, and a keystroke in its
// search, each up to the painted window.
#include "host/parameters/parameter_panel.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>

#include <benchmark/benchmark.h>

namespace krt550 {
namespace {

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

std::vector<ParameterDescription> ManyParameters() {
    std::vector<ParameterDescription> parameters;
    for (int reg = 100; reg < 65'100; ++reg) {
        ParameterDescription parameter;
        parameter.reg = static_cast<quint16>(reg);
        parameter.name = QStringLiteral("Parameter %1").arg(reg);
        if (reg % 4 == 0)
            parameter.values = {{0, QStringLiteral("Off")}, {1, QStringLiteral("On")}, {2, QStringLiteral("Both")}};
        parameters.push_back(parameter);
    }
    return parameters;
}

void Paint(QWidget& panel) {
    panel.repaint();
    benchmark::DoNotOptimize(panel.grab());
}

void OpenParameterList(benchmark::State& state) {
    const std::vector<ParameterDescription> parameters = ManyParameters();
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
    panel.SetDrive(&link, ManyParameters());
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
