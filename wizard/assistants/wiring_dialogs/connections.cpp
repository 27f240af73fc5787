#include "wizard/assistants/wiring_dialogs/connections.h"

#include "wizard/params/failure_pass.h"
#include "wizard/params/read_once.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"

#include <QListWidget>
#include <QSignalBlocker>

namespace krt550 {

CDialogConnections::CDialogConnections(int layoutNumber, QWidget* opener, InputKind kind, int input,
                                       CParameterGroup* root, const ConnectionChange& pending)
    : CDialog(layoutNumber), m_kind(kind), m_input(input), m_root(root), m_pending(pending) {
    if (opener)
        OpenAt(*opener, Place::Below);
    Handle(kIdConnectionList, ControlEvent::Selected, [this] { Ticked(); });
    Handle(kIdCloseDialog, ControlEvent::Clicked, [this] { EndDialog(kIdCloseDialog); });
}

ConnectionChange CDialogConnections::GetChange() const {
    return m_picker ? m_picker->GetChange() : m_pending;
}

bool CDialogConnections::OnInitDialog() {
    const CWaitCursor wait;
    const FailurePass pass;
    CReadOnce reads;
    m_picker.emplace(CSelectorList(m_kind, m_root, reads), m_input, m_pending);
    FillList();
    return true;
}

void CDialogConnections::FillList() {
    auto* list = GetControl<QListWidget>(kIdConnectionList);
    const QSignalBlocker quiet(list);
    for (int item = 0; item < m_picker->Count(); ++item)
        AddCheckEntry(list, m_picker->Name(item), m_picker->IsTicked(item));
    ShowItems();
}

void CDialogConnections::ShowItems() {
    auto* list = GetControl<QListWidget>(kIdConnectionList);
    const QSignalBlocker quiet(list);
    for (int item = 0; item < m_picker->Count(); ++item) {
        QListWidgetItem* entry = list->item(item);
        const bool canChange = m_picker->CanChange(item);
        entry->setCheckState(m_picker->IsTicked(item) ? Qt::Checked : Qt::Unchecked);
        entry->setFlags(entry->flags().setFlag(Qt::ItemIsUserCheckable, canChange));
        entry->setForeground(list->palette().brush(canChange ? QPalette::Active : QPalette::Disabled, QPalette::Text));
        entry->setToolTip(m_picker->Hint(item));
        entry->setData(Qt::AccessibleDescriptionRole, m_picker->Hint(item));
    }
}

/// One tick may take another one away.
void CDialogConnections::Ticked() {
    const auto* list = GetControl<QListWidget>(kIdConnectionList);
    for (int item = 0; item < m_picker->Count(); ++item)
        if (const bool ticked = list->item(item)->checkState() == Qt::Checked; ticked != m_picker->IsTicked(item)) {
            m_picker->Tick(item, ticked);
            break; // what follows from it is shown below
        }
    ShowItems();
}

CDialogAIConnections::CDialogAIConnections(QWidget* opener, int input, CParameterGroup* root,
                                           const ConnectionChange& pending)
    : CDialogConnections(143, opener, InputKind::Analogue, input, root, pending) {}

} // namespace krt550
