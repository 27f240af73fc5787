// A module as krt550tool loads it: reads one parameter, shows the toy wizard and leaves the drive safe.
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "tests/host/toy_wizard.h"

extern "C" __attribute__((visibility("default"))) int RunWizard(krt550::CHostDrive* drive) {
    using namespace krt550;
    CToyWizard wizard;
    CParameterGroup* root = nullptr;
    if (!drive->GetParameterRoot(&root) || !root)
        return 1;
    CParameter* voltage = root->FindChildByRegister(QStringLiteral("9902"));
    wizard.setWindowTitle(voltage && voltage->ReadFromDrive() ? voltage->GetStringValue()
                                                              : QStringLiteral("no voltage"));
    drive->TakeLocalControl();
    wizard.exec();
    drive->ReleaseLocalControl();
    return 0;
}
