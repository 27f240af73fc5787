#include "host/wizard_module.h"

#include <QFileInfo>

namespace krt550 {

bool CWizardModule::Load(const QString& path, QString& error) {
    if (!QFileInfo(path).isFile()) {
        error = QStringLiteral("module %1: there is no such file").arg(path);
        return false;
    }
    m_library.setFileName(QFileInfo(path).absoluteFilePath());
    m_runWizard = reinterpret_cast<RunWizardFunction>(m_library.resolve("RunWizard"));
    if (!m_runWizard) {
        error = m_library.isLoaded() ? QStringLiteral("module %1 has no function RunWizard").arg(path)
                                     : QStringLiteral("module %1: %2").arg(path, m_library.errorString().simplified());
        return false;
    }
    return true;
}

} // namespace krt550
