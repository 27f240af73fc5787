#include "wizard/assistants/special/page_configurable_assistant.h"

#include "wizard/assistants/special/row_help_dialog.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/failure_pass.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/message_box.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

/// What a screen reader calls a row that the file leaves out, and the button of a row.
const QString kUnusedName = QStringLiteral("Row %1, not used");
const QString kHelpName = QStringLiteral("Help on %1");

constexpr int NumberOf(std::size_t index) {
    return static_cast<int>(index) + 1;
}

/// What the text file says of a row; a row without a register when it says nothing.
ConfigurableRow RecordOf(std::size_t index, bool available) {
    ConfigurableRow record;
    if (!available || !CWizardTextStore::Instance().GetConfigurableRow(NumberOf(index), record) || record.reg == 0)
        record = {};
    return record;
}

} // namespace

CPageConfigurableAssistant::CPageConfigurableAssistant()
    : CRowPage(kConfigurableRows, QStringLiteral("16.htm"), TextSource::ConfigurableFile) {
    for (std::size_t index = 0; index < m_helpTexts.size(); ++index)
        Handle(ConfigurableHelpId(NumberOf(index)), ControlEvent::Clicked, [this, index] { ShowHelpOf(index); });
}

QWidget* CPageConfigurableAssistant::CreateControl(const ControlLayout& control) {
    if (control.kind == ControlKind::Edit)
        return new CPresetEdit(this);
    if (control.kind == ControlKind::DropDown)
        return new CPresetComboBox(this);
    return CRowPage::CreateControl(control);
}

bool CPageConfigurableAssistant::BindRows(CParameterGroup* root, QString& errors) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    const bool available = store.EnsureConfigurableTexts();
    SetControlText(GetDlgItem(kIdConfigurableGroup), available ? store.GetConfigurableName() : QString());
    std::array<ConfigurableRow, kConfigurableRowCount> records;
    for (std::size_t index = 0; index < records.size(); ++index) {
        records[index] = RecordOf(index, available);
        GetRows()[index].SetRegister(records[index].reg);
        GetRows()[index].SetCaption(records[index].caption);
    }
    const bool bound = CRowPage::BindRows(root, errors);
    for (std::size_t index = 0; index < records.size(); ++index)
        SetUpRow(index, records[index]);
    return bound;
}

void CPageConfigurableAssistant::SetUpRow(std::size_t index, const ConfigurableRow& record) {
    const CRow& row = GetRows()[index];
    if (auto* holder = dynamic_cast<CPresetHolder*>(row.GetValueControl())) {
        holder->SetPreset(record.preset);
        holder->SetParameter(row.GetParameter());
    }
    AddToolTip(row.GetLabelId(), record.toolTip);
    m_helpTexts[index] = record.helpText;
    QWidget* help = GetDlgItem(ConfigurableHelpId(NumberOf(index)));
    EnableControl(help, !record.helpText.isEmpty());
    const QString label = GetControlText(GetDlgItem(row.GetLabelId()));
    const QString name = label.isEmpty() ? kUnusedName.arg(NumberOf(index)) : label;
    row.GetValueControl()->setAccessibleName(name);
    help->setAccessibleName(kHelpName.arg(name));
}

void CPageConfigurableAssistant::ReportLoadErrors(const QString& errors) {
    ShowMessageBox(errors, MessageIcon::Stop);
}

bool CPageConfigurableAssistant::ApplyParameters() {
    // Where nothing was typed nothing is told again of a file or a row that is missing. A value that was refused stays
    // in its row, to be corrected.
    if (!AnyChanged())
        return true;
    return WriteRows() && (!GetPageParameterRoot(GetSheet()) || LoadParameters());
}

void CPageConfigurableAssistant::SetAllToPresets() {
    const FailurePass pass;
    for (std::size_t index = 0; index < GetRows().size(); ++index)
        if (auto* holder = dynamic_cast<CPresetHolder*>(GetRows()[index].GetValueControl()))
            holder->ChangeToPreset();
}

void CPageConfigurableAssistant::ShowHelpOf(std::size_t index) {
    CRowHelpDialog(m_helpTexts[index], *GetDlgItem(ConfigurableHelpId(NumberOf(index)))).DoModal();
}

} // namespace krt550
