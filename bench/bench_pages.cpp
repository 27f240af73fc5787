// What a page costs: finding parameters, coming to the front, one update pass. The drive answers at once.
#include "drive/simulated_host_drive.h"
#include "hostlib/tolvbo32/drive_description.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_tree.h"
#include "wizard/page_factory.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_property_page.h"
#include "wizard/texts/wizard_directory.h"

#include <QCoreApplication>

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

/// The wizard on the simulated drive of the shipped description.
class Wizard {
public:
    Wizard() {
        QStringList errors;
        auto description =
            ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors);
        m_drive = std::make_unique<CSimulatedHostDrive>(std::move(*description), QString());
        SetWizardDirectory(QStringLiteral(KRT550_SOURCE_DIR "/data"));
        InstallPages();
        m_sheet = std::make_unique<CSheetWizard>(1, nullptr, 0);
        m_sheet->SetDriveObject(m_drive.get());
        m_sheet->StartBasicCommissioning();
        m_sheet->show();
        Show(0);
    }

    /// Brings a page to the front, painted.
    void Show(int page) {
        m_sheet->SetActivePage(page);
        QCoreApplication::processEvents();
    }
    CWizardPropertyPage& GetPage(int page) { return *m_sheet->GetWizardPage(page); }

private:
    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    std::unique_ptr<CSimulatedHostDrive> m_drive;
    std::unique_ptr<CSheetWizard> m_sheet;
};

void FirstActivationOfStep1(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto wizard = std::make_unique<Wizard>();
        state.ResumeTiming();
        wizard->Show(1);
        state.PauseTiming();
        wizard.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(FirstActivationOfStep1)->Unit(benchmark::kMillisecond);

void LaterActivationOfStep1(benchmark::State& state) {
    Wizard wizard;
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
    Wizard wizard;
    wizard.Show(1);
    int timer = 0;
    for (auto _ : state)
        UpdateParameters(wizard.GetPage(1), timer);
}
BENCHMARK(UpdatePassOfStep1)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace krt550
