#pragma once

#include <QString>

namespace krt550 {

class CHostDrive;

/// The wizard module as the tool loads it at run time. It stays loaded until the program ends: its windows and
/// module-wide state may outlive a run.
class CWizardModule {
public:
    /// False, and the reason in `error`, when the file is no module with a RunWizard.
    bool Load(const QString& path, QString& error);
    /// One wizard run; returns when its window has closed.
    int Run(CHostDrive* drive) const { return m_runWizard(drive); }

private:
    using RunWizardFunction = int (*)(CHostDrive*);

    RunWizardFunction m_runWizard = nullptr;
};

} // namespace krt550
