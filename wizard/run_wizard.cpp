#include "wizard/run_wizard.h"

#include "wizard/diagnosis/fault_record.h"
#include "wizard/page_factory.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/wizard_app.h"

extern "C" __attribute__((visibility("default"))) int RunWizard(krt550::CHostDrive* drive) {
    constexpr int kNoDrive = 2;
    static const krt550::CModuleResources resources;
    const krt550::ResourceScope scope(resources);
    if (!drive)
        return kNoDrive;
    krt550::InstallPages();
    const int result = krt550::CWizardApp::Instance().RunSession(drive);
    // The drive was borrowed for the length of this call.
    krt550::SetDiagnosisDrive(nullptr);
    return result;
}
