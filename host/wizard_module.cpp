#include "host/wizard_module.h"

#include "host/loaded_function.h"

namespace krt550 {

bool CWizardModule::Load(const QString& path, QString& error) {
    m_runWizard =
        reinterpret_cast<RunWizardFunction>(LoadFunction(QLatin1String("module ") + path, path, "RunWizard", error));
    return m_runWizard;
}

} // namespace krt550
