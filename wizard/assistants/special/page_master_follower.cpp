#include "wizard/assistants/special/page_master_follower.h"

#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/wizard_tab_sheet.h"

namespace krt550 {
namespace {

constexpr int kMailBox = 325;

} // namespace

CPageMasterFollowerDriveToDrive::CPageMasterFollowerDriveToDrive()
    : CRowPage(kMasterFollowerRows, QStringLiteral("13.htm")), m_mailBoxes{CTabPageMailBox(1), CTabPageMailBox(2),
                                                                           CTabPageMailBox(3), CTabPageMailBox(4)} {
    CWizardTabSheet& tabs = UseTabs(kIdTabPlaceholder);
    for (int number = 1; CTabPageMailBox & tab : m_mailBoxes)
        tabs.AddTab(tab, QStringLiteral("%1 %2").arg(LoadText(kMailBox)).arg(number++));
}

} // namespace krt550
