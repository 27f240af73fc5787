#include "wizard/assistants/basic/page_macro_assistant.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "wizard/assistants/wiring_dialogs/analog_inputs.h"
#include "wizard/assistants/wiring_dialogs/analog_outputs.h"
#include "wizard/assistants/wiring_dialogs/digital_settings.h"
#include "wizard/motor/standstill.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/params/read_once.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr quint16 kApplicationRestore = 9907;
constexpr int kMotorMayTurn = 2011;
constexpr int kAdvancedCaption = 14;
constexpr int kBasicCaption = 15;
constexpr int kDependentGroup = 1;

} // namespace

CPageMacroAssistant::CPageMacroAssistant() : CPageMacroAssistant(kMacroRows, QStringLiteral("2.htm")) {
    GetMacroRow().SetChangeHandler([this] { ChooseMacro(); });
    Handle(kIdMacroView, ControlEvent::Clicked, [this] {
        m_basicView = !m_basicView;
        ShowView();
    });
}

CPageMacroAssistant::CPageMacroAssistant(const PageRows& rows, QString helpTopic)
    : CRowPage(rows, std::move(helpTopic)) {
    for (const TerminalKind kind : kTerminalKinds)
        Handle(EditParametersId(kind), ControlEvent::Clicked, [this, kind] { EditTerminals(kind); });
}

QWidget* CPageMacroAssistant::CreateControl(const ControlLayout& control) {
    QWidget* drawn = CConnectionOverview::MakeControl(control.id, this);
    return drawn ? drawn : CRowPage::CreateControl(control);
}

bool CPageMacroAssistant::OnInitDialog() {
    const bool result = CRowPage::OnInitDialog();
    m_overview.Dress();
    if (HasMacro()) {
        m_group = GetDlgItem(GroupId(0))->geometry();
        m_description = GetDlgItem(kIdMacroDescription)->geometry();
    }
    return result;
}

bool CPageMacroAssistant::LoadParameters() {
    ShowUnknown();
    const bool loaded = CRowPage::LoadParameters();
    ShowView();
    return loaded;
}

/// The rows are those of the macro that was read last; another one's are read one by one.
void CPageMacroAssistant::AddReads(std::vector<quint16>& registers) {
    CRowPage::AddReads(registers);
    CConnectionOverview::AddReads(registers);
    CParameterGroup* root = HasMacro() ? GetPageParameterRoot(GetSheet()) : nullptr;
    QStringList dependent;
    if (const CParameter* macro = root ? FindInTree(root, GetMacroRow().GetRegister()) : nullptr)
        CWizardTextStore::Instance().GetMacroDependentRegisters(macro->GetActualValue(), dependent);
    for (const QString& reg : dependent)
        registers.push_back(reg.toUShort());
}

bool CPageMacroAssistant::BindRows(CParameterGroup* root, QString& errors) {
    CReadOnce reads;
    bool bound = true;
    if (HasMacro()) {
        bound = GetMacroRow().Bind(root, errors);
        reads.Know(GetMacroRow().GetParameter(), GetMacroRow().IsRead());
        ShowDescription();
    }
    return ShowWhatDepends(root, reads, errors) && bound;
}

/// The macro's rows and the overview, from the drive. False when a row was not read.
bool CPageMacroAssistant::ShowWhatDepends(CParameterGroup* root, CReadOnce& reads, QString& errors) {
    const bool bound = !HasMacro() || BindDependentRows(root, reads, errors);
    m_overview.ShowAll(root, reads);
    m_overview.EnableSettings(true);
    return bound;
}

bool CPageMacroAssistant::BindDependentRows(CParameterGroup* root, CReadOnce& reads, QString& errors) {
    QStringList registers;
    if (GetMacroRow().IsRead())
        CWizardTextStore::Instance().GetMacroDependentRegisters(GetMacroRow().GetParameter()->GetActualValue(),
                                                                registers);
    if (registers.size() > kDependentRows)
        registers.clear();
    bool bound = true;
    for (int position = kDependentRows; position > 0; --position) {
        CRow& row = GetRows()[std::size_t(position)];
        row.Unbind();
        row.SetRegister(registers.value(position - 1).toUShort());
        if (row.GetRegister() == 0)
            continue;
        // What is left of the row when the drive lacks the parameter.
        SetControlText(GetDlgItem(row.GetLabelId()), QString::number(row.GetRegister()));
        bound = row.Bind(root, errors) && bound;
        reads.Know(row.GetParameter(), row.IsRead());
        AddToolTip(row.GetLabelId(), CWizardTextStore::Instance().GetToolTip(row.GetRegister()));
    }
    ShowView();
    return bound;
}

/// The settings of a kind of terminals, in a dialog that applies them itself.
void CPageMacroAssistant::EditTerminals(TerminalKind kind) {
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    if (!root)
        return;
    const auto edit = [this, root](auto&& dialog, std::initializer_list<TerminalKind> kinds) {
        dialog.SetParameterRoot(root);
        dialog.OpenAt(*this, CDialog::Place::Over);
        dialog.DoModal();
        ShowEdited(kinds);
    };
    if (kind == TerminalKind::AnalogueInput)
        edit(CDialogAISettings(), {kind});
    else if (kind == TerminalKind::AnalogueOutput)
        edit(CDialogAOSettings(), {kind});
    else
        edit(CDialogDIDOSettings(), {TerminalKind::DigitalOutput, TerminalKind::DigitalInput});
}

/// What a dialog may have changed; the macro's rows show some of the same parameters.
void CPageMacroAssistant::ShowEdited(std::initializer_list<TerminalKind> kinds) {
    CParameterGroup* root = GetSheet()->IsClosing() ? nullptr : GetPageParameterRoot(GetSheet());
    if (!root)
        return;
    const CWaitCursor wait;
    const LossMemory::Scope told(LossMemory::Since::LastAnswer); // the dialog may have told of a loss
    const FailurePass pass;
    CReadOnce reads;
    for (std::size_t position = 1; position < GetRows().size(); ++position)
        if (CRow& row = GetRows()[position]; row.GetParameter() && !row.IsChanged())
            reads.Know(row.GetParameter(), row.Reread());
    for (const TerminalKind kind : kinds)
        m_overview.Show(kind, root, reads);
}

/// Another macro was chosen, or the drive's own again.
void CPageMacroAssistant::ChooseMacro() {
    const CWaitCursor wait;
    const FailurePass pass;
    ShowDescription();
    CParameterGroup* root = IsMacroChosen() ? nullptr : GetPageParameterRoot(GetSheet());
    if (!root)
        return ShowUnknown();
    CReadOnce reads;
    QString errors; // told when the page was loaded
    ShowWhatDepends(root, reads, errors);
}

void CPageMacroAssistant::ShowDescription() {
    const CParameter* macro = GetMacroRow().GetParameter();
    const auto word = macro ? WordOfChoice(*macro, GetControlText(GetMacroRow().GetValueControl())) : std::nullopt;
    SetControlText(GetDlgItem(kIdMacroDescription),
                   word ? CWizardTextStore::Instance().GetMacroDescription(*word) : QString());
}

/// What depends on the macro is known again once that is loaded; settings made before would be lost with it.
void CPageMacroAssistant::ShowUnknown() {
    m_overview.ShowUnknown();
    m_overview.EnableSettings(false);
    for (std::size_t position = 1; position < GetRows().size(); ++position) {
        GetRows()[position].Clear();
        SetControlText(GetDlgItem(GetRows()[position].GetLabelId()), QStringLiteral("?"));
    }
}

bool CPageMacroAssistant::WriteRows() {
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    CReadOnce reads;
    if (IsMacroChosen()) {
        if (!LoadMacro(root))
            return false;
        QString errors;
        BindDependentRows(root, reads, errors);
        AppendPendingMessage(errors);
    }
    bool written = true;
    for (std::size_t position = 1; position < GetRows().size(); ++position)
        written = GetRows()[position].Write() && written;
    if (root) {
        m_overview.ShowAll(root, reads);
        m_overview.EnableSettings(true);
    }
    return written;
}

/// Has the drive load the chosen macro. When that fails, 99.08 names the macro again whose connections the drive has.
bool CPageMacroAssistant::LoadMacro(CParameterGroup* root) {
    CHostDrive* drive = GetDrive();
    if (!drive || !IsAtRest(*drive)) {
        ShowMessageBox(LoadText(kMotorMayTurn), MessageIcon::Stop);
        return false;
    }
    CRow& macro = GetMacroRow();
    const bool known = macro.IsRead();
    const quint16 former = macro.GetParameter()->GetActualValue();
    if (macro.Write() && root && SetAndWriteParameter(root, kApplicationRestore, 1))
        return true;
    if (known)
        macro.TakeBack(former);
    return false;
}

void CPageMacroAssistant::ShowView() {
    if (!HasMacro())
        return;
    SetControlTextFromString(GetDlgItem(kIdMacroView), m_basicView ? kAdvancedCaption : kBasicCaption);
    for (int part = GroupId(kDependentGroup); part <= MaximumHeadingId(kDependentGroup); ++part)
        ShowControl(GetDlgItem(part), !m_basicView);
    for (std::size_t position = 1; position < GetRows().size(); ++position)
        GetRows()[position].Show(!m_basicView && GetRows()[position].GetRegister() != 0);
    // Without the rows beside it the description has their room, too.
    const int more = m_basicView ? GetDlgItem(GroupId(kDependentGroup))->geometry().right() - m_group.right() : 0;
    GetDlgItem(GroupId(0))->setGeometry(m_group.adjusted(0, 0, more, 0));
    GetDlgItem(kIdMacroDescription)->setGeometry(m_description.adjusted(0, 0, more, 0));
}

} // namespace krt550
