#include "wizard/assistants/special/page_12_pulse.h"

#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/wizard_tab_sheet.h"

namespace krt550 {
namespace {

constexpr PageRows k12PulsePage{.layout = 139, .update = UpdateWhen::Always};
constexpr int kCommonTab = 353;
constexpr int kProtectionsTab = 352;

} // namespace

void CTabPage12Pulse::ReportLoadErrors(const QString& errors) {
    ShowMessageBox(errors, MessageIcon::Stop);
}

CPage12Pulse::CPage12Pulse()
    : CRowPage(k12PulsePage, QStringLiteral("14.htm")), m_common(k12PulseCommonRows), m_protections(k12PulseProtectionRows) {
    CWizardTabSheet& tabs = UseTabs(kId12PulseTabs);
    tabs.AddTab(m_common, LoadText(kCommonTab));
    tabs.AddTab(m_protections, LoadText(kProtectionsTab));
}

} // namespace krt550
