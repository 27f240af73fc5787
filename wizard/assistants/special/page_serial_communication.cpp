#include "wizard/assistants/special/page_serial_communication.h"

#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/wizard_tab_sheet.h"

namespace krt550 {
namespace {

constexpr quint16 kModule = 9802;
constexpr int kFieldbusTab = 354;
constexpr int kReceiveTab = 355;
constexpr int kTransmitTab = 356;

} // namespace

CPageSerialCommunication::CPageSerialCommunication() : CRowPage(kSerialRows, QStringLiteral("15.htm")) {
    CWizardTabSheet& tabs = UseTabs(kIdTabPlaceholder);
    tabs.AddTab(m_fieldbus, LoadText(kFieldbusTab));
    tabs.AddTab(m_receive, LoadText(kReceiveTab));
    tabs.AddTab(m_transmit, LoadText(kTransmitTab));
}

bool CPageSerialCommunication::WriteRows() {
    const bool otherModule = GetRows().Find(kModule)->IsChanged();
    const bool written = CRowPage::WriteRows();
    // Without a drive there are no tabs yet.
    if (otherModule && GetTabs()->GetFrontTab())
        m_fieldbus.LoadParameters();
    return written;
}

} // namespace krt550
