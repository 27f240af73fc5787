#include "wizard/shell/wizard_app.h"

#include "hostlib/host_drive.h"
#include "wizard/motor/make_safe.h"
#include "wizard/platform/message_box.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/texts/wizard_directory.h"

namespace krt550 {
namespace {

constexpr int kCaptionString = 1;

void TakeWizardDirectory(CHostDrive& drive) {
    const CDriveInfo* info = drive.GetDriveInfo();
    if (!info)
        return;
    const QString native = info->GetWizardPath();
    const QString path = QString(native).replace(QLatin1Char('/'), QLatin1Char('\\'));
    const qsizetype separator = path.lastIndexOf(QLatin1Char('\\'));
    if (separator >= 0)
        SetWizardDirectory(path.left(separator), native.left(separator));
}

} // namespace

CWizardApp& CWizardApp::Instance() {
    static CWizardApp application;
    return application;
}

int CWizardApp::RunSession(CHostDrive* drive) {
    TakeWizardDirectory(*drive);
    BeginMotorSession();
    CSheetWizard sheet(kCaptionString, nullptr, 0);
    sheet.SetDriveObject(drive);
    sheet.DoModal();
    ShowHeldBoxes();
    return m_resultCode;
}

} // namespace krt550
