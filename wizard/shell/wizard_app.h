#pragma once

namespace krt550 {

class CHostDrive;

/// The module's application object: one instance, made when the module is loaded.
class CWizardApp {
public:
    static CWizardApp& Instance();

    /// Runs the wizard once on the drive (not null) and returns the result code, which stays 0.
    int RunSession(CHostDrive* drive);

private:
    int m_resultCode = 0;
};

} // namespace krt550
