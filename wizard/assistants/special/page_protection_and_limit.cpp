#include "wizard/assistants/special/page_protection_and_limit.h"

#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/wizard_tab_sheet.h"

namespace krt550 {
namespace {

constexpr PageRows kProtectionPage{.layout = 133, .update = UpdateWhen::Always};

} // namespace

CPageProtectionAndLimit::CPageProtectionAndLimit()
    : CRowPage(kProtectionPage, QStringLiteral("9.htm")), m_protections(kProtectionRows), m_limits(kLimitRows) {
    CWizardTabSheet& tabs = UseTabs(kIdProtectionTabs);
    tabs.AddTab(m_protections);
    tabs.AddTab(m_limits);
}

bool CPageProtectionAndLimit::WriteRows() {
    const bool written = m_limits.ApplyParameters();
    return m_protections.ApplyParameters() && written;
}

} // namespace krt550
