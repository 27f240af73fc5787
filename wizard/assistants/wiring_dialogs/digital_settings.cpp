#include "wizard/assistants/wiring_dialogs/digital_settings.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/assistants/wiring_dialogs/digital_connections.h"
#include "wizard/assistants/wiring_dialogs/digital_lines.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/read_once.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/terminal_registers.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/texts/context_help.h"
#include "wizard/texts/wizard_text_store.h"
#include "wizard/wiring/status_bits.h"

#include <QAbstractButton>
#include <QScopedValueRollback>

namespace krt550 {
namespace {

constexpr int kUpdateKey = 101;
constexpr int kAdvanced = 14;
constexpr int kBasic = 15;
const QString kWaiting = QStringLiteral("?"); ///< changed and not yet applied

constexpr int InputId(int number, DigitalControl control) {
    return DigitalId(DigitalGroup::Inputs, number, control);
}
constexpr int OutputId(int number, DigitalControl control) {
    return DigitalId(DigitalGroup::Outputs, number, control);
}
constexpr std::size_t At(int number) {
    return static_cast<std::size_t>(number - 1);
}

} // namespace

CDialogDIDOSettings::CDialogDIDOSettings() : CDialog(141) {
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        Handle(InputId(number, kDigitalEdit), ControlEvent::Clicked, [this, number] { EditConnections(number); });
        Handle(InputId(number, kDigitalInvert), ControlEvent::Clicked, [this, number] { InversionClicked(number); });
        const SourceRowIds ids{OutputId(number, kDigitalChoice), OutputId(number, kDigitalIndex),
                               OutputId(number, kDigitalBit), OutputId(number, kDigitalInvert)};
        m_outputs.push_back(std::make_unique<CSourceRow>(*this, number, ids));
        m_outputs.back()->SetChangeHandler([this, number] { OutputChanged(number); });
    }
    Handle(DigitalId(DigitalGroup::Outputs, kDigitalView), ControlEvent::Clicked, [this] { ToggleView(); });
    Handle(kIdApply, ControlEvent::Clicked, [this] {
        const CWaitCursor wait;
        Write();
        Load();
    });
    Handle(kIdCloseDialog, ControlEvent::Clicked, [this] {
        {
            const CWaitCursor wait;
            Write();
        }
        EndDialog(kIdCloseDialog);
    });
    Handle(kIdHelp, ControlEvent::Clicked, [this] { ShowHelp(window(), QStringLiteral("dido.htm")); });
    PressByKey(*this, QKeySequence::HelpContents, kIdHelp);
}

bool CDialogDIDOSettings::OnInitDialog() {
    const CWaitCursor wait;
    DressDigitalLines(*this);
    ShowView();
    Load();
    return true;
}

QWidget* CDialogDIDOSettings::CreateControl(const ControlLayout& control) {
    return MakeDigitalControl(control, this);
}

void CDialogDIDOSettings::ToggleView() {
    m_basic = !m_basic;
    ShowView();
}

void CDialogDIDOSettings::ShowView() {
    for (const auto& output : m_outputs)
        output->ShowView(m_basic);
    for (const DigitalHeading heading : {kDigitalIndexHeading, kDigitalBitHeading})
        ShowControl(GetDlgItem(DigitalId(DigitalGroup::Outputs, heading)), !m_basic);
    SetControlTextFromString(GetDlgItem(DigitalId(DigitalGroup::Outputs, kDigitalView)), m_basic ? kAdvanced : kBasic);
}

void CDialogDIDOSettings::Load() {
    const FailurePass pass;
    QString errors;
    Forget();
    LoadInputs();
    LoadOutputs(errors);
    const bool shown = ShowStates();
    if (!errors.isEmpty())
        ShowMessageBox(errors, MessageIcon::Stop);
    if (m_timer == 0 && shown)
        m_timer = StartParameterUpdate(*this, kUpdateKey);
}

void CDialogDIDOSettings::LoadInputs() {
    CReadOnce reads;
    m_inputStates = FindParameter(m_root, kInputStates);
    m_selectors = CSelectorList(InputKind::Digital, m_root, reads);
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        ShowConnection(number);
        CParameter* inversion = FindInTree(m_root, DIInversionRegister(number));
        const bool read = reads.Read(inversion);
        m_inversions[At(number)] = read ? inversion : nullptr;
        auto* tick = GetControl<QAbstractButton>(InputId(number, kDigitalInvert));
        SetTick(tick, read && inversion->GetActualValue() == 1);
        EnableControl(tick, read);
    }
}

void CDialogDIDOSettings::LoadOutputs(QString& errors) {
    m_outputStates = FindParameter(m_root, kOutputStates);
    const IndexList sources = CWizardTextStore::Instance().GetDOList();
    for (const auto& output : m_outputs)
        output->Bind(m_root, sources, errors);
}

void CDialogDIDOSettings::Write() {
    const FailurePass pass;
    for (int number = 1; number <= kDigitalTerminals; ++number)
        WriteInversion(number);
    for (int number = 1; number <= kDigitalTerminals; ++number)
        WriteConnections(m_root, InputKind::Digital, number, m_changes[At(number)]);
    for (const auto& output : m_outputs)
        output->Write();
    m_changes.fill({});
}

void CDialogDIDOSettings::WriteInversion(int number) {
    CParameter* inversion = m_inversions[At(number)];
    if (!inversion)
        return;
    const bool ticked = GetControl<QAbstractButton>(InputId(number, kDigitalInvert))->isChecked();
    const quint16 word = ticked ? 1 : 0;
    if (inversion->GetActualValue() != word)
        SetAndWriteParameter(m_root, DIInversionRegister(number), word);
    UnmarkChanged(DIInversionRegister(number));
}

void CDialogDIDOSettings::EditConnections(int number) {
    CDialogDIConnections picker(GetDlgItem(InputId(number, kDigitalEdit)), number, m_root, m_changes[At(number)]);
    if (picker.DoModal() != kIdCloseDialog)
        return;
    m_changes[At(number)] = picker.GetChange();
    ShowConnection(number);
    ShowWaitingOrState(InputId(number, kDigitalStatus), !m_changes[At(number)].IsEmpty());
}

void CDialogDIDOSettings::ShowConnection(int number) {
    const bool waiting = !m_changes[At(number)].IsEmpty();
    SetControlText(GetDlgItem(InputId(number, kDigitalConnection)),
                   waiting ? kWaiting : m_selectors.UseOf(number).text);
}

void CDialogDIDOSettings::InversionClicked(int number) {
    const CParameter* inversion = m_inversions[At(number)];
    const bool ticked = GetControl<QAbstractButton>(InputId(number, kDigitalInvert))->isChecked();
    if (inversion && ticked != (inversion->GetActualValue() == 1))
        MarkChanged(DIInversionRegister(number));
    else
        UnmarkChanged(DIInversionRegister(number));
}

void CDialogDIDOSettings::OutputChanged(int number) {
    ShowWaitingOrState(OutputId(number, kDigitalStatus), m_outputs[At(number)]->IsChanged());
}

void CDialogDIDOSettings::ShowWaitingOrState(int status, bool waiting) {
    if (waiting)
        SetControlText(GetDlgItem(status), kWaiting);
    else
        Refresh();
}

/// Shows the states but those of terminals that wait for Apply. False when one could not be read.
bool CDialogDIDOSettings::ShowStates() {
    const FailurePass pass;
    std::array<QWidget*, kDigitalTerminals> inputs{};
    std::array<QWidget*, kDigitalTerminals> outputs{};
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        const std::size_t at = At(number);
        if (m_changes[at].IsEmpty())
            inputs[at] = GetDlgItem(InputId(number, kDigitalStatus));
        if (!m_outputs[at]->IsChanged())
            outputs[at] = GetDlgItem(OutputId(number, kDigitalStatus));
    }
    const bool inputsRead = ShowStatusBits(m_inputStates, inputs);
    return ShowStatusBits(m_outputStates, outputs) && inputsRead;
}

void CDialogDIDOSettings::Refresh() {
    if (m_refreshing || AreBoxesHeld())
        return;
    const QScopedValueRollback<bool> refreshing(m_refreshing, true);
    if (!ShowStates())
        StopFailedUpdate(*this, m_timer);
}

void CDialogDIDOSettings::OnTimer(int id) {
    if (id == kUpdateKey)
        Refresh();
    else
        CDialog::OnTimer(id);
}

/// The marks of this dialog's rows; those of the page behind it stay.
void CDialogDIDOSettings::Forget() const {
    for (int number = 1; number <= kDigitalTerminals; ++number)
        UnmarkChanged(DIInversionRegister(number));
    for (const auto& output : m_outputs)
        output->Unmark();
}

void CDialogDIDOSettings::OnDestroy() {
    StopParameterUpdate(*this, m_timer);
    Forget();
}

} // namespace krt550
