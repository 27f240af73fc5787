#pragma once

#include "drive/simulated_host_drive.h"
#include "hostlib/tolvbo32/drive_description.h"
#include "wizard/page_factory.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_property_page.h"
#include "wizard/texts/wizard_directory.h"

#include <QApplication>

#include <memory>

namespace krt550 {

/// The shipped description of a drive.
inline const std::vector<ParameterDescription>& BenchDescription() {
    static const std::vector<ParameterDescription> description = [] {
        QStringList errors;
        return ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors).value();
    }();
    return description;
}

/// The wizard on the simulated drive of the shipped description.
class BenchWizard {
public:
    BenchWizard() : m_drive(BenchDescription(), QString()) {
        SetWizardDirectory(QStringLiteral(KRT550_SOURCE_DIR "/data"));
        InstallPages();
        m_sheet = std::make_unique<CSheetWizard>(1, nullptr, 0);
        m_sheet->SetDriveObject(&m_drive);
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
    CSimulatedHostDrive m_drive;
    std::unique_ptr<CSheetWizard> m_sheet;
};

} // namespace krt550
