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

namespace krt550 {
namespace {

constexpr int kDigitalUpdateKey = 101;
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
        m_outputs.back()->SetChangeHandler([this] { ShowStates(); });
    }
    Handle(DigitalId(DigitalGroup::Outputs, kDigitalView), ControlEvent::Clicked, [this] { ToggleView(); });
    Handle(kIdApply, ControlEvent::Clicked, [this] {
        const CWaitCursor wait;
        const FailurePass pass;
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
    SetViewText(GetDlgItem(DigitalId(DigitalGroup::Outputs, kDigitalView)), m_basic);
}

void CDialogDIDOSettings::Load() {
    const FailurePass pass;
    QString errors;
    Forget();
    LoadInputs();
    LoadOutputs(errors);
    const bool inputsRead = ReadStates(m_inputStates);
    const bool statesRead = ReadStates(m_outputStates) && inputsRead;
    ShowStates();
    if (!errors.isEmpty())
        ShowMessageBox(errors, MessageIcon::Stop);
    if (m_timer == 0 && statesRead)
        m_timer = StartParameterUpdate(*this, kDigitalUpdateKey);
}

void CDialogDIDOSettings::LoadInputs() {
    CReadOnce reads;
    m_inputStates.parameter = FindParameter(m_root, kInputStates);
    m_selectors = CSelectorList(InputKind::Digital, m_root, reads);
    ShowConnections();
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        CParameter* inversion = FindInTree(m_root, DIInversionRegister(number));
        const bool read = reads.Read(inversion);
        m_inversions[At(number)] = read ? inversion : nullptr;
        auto* tick = GetControl<QAbstractButton>(InputId(number, kDigitalInvert));
        SetTick(tick, read && inversion->GetActualValue() == 1);
        EnableControl(tick, read);
    }
}

void CDialogDIDOSettings::LoadOutputs(QString& errors) {
    m_outputStates.parameter = FindParameter(m_root, kOutputStates);
    const IndexList sources = CWizardTextStore::Instance().GetDOList();
    for (const auto& output : m_outputs)
        output->Bind(m_root, sources, errors);
}

void CDialogDIDOSettings::Write() {
    const FailurePass pass;
    for (int number = 1; number <= kDigitalTerminals; ++number)
        WriteInversion(number);
    m_picked.Write(m_root);
    for (const auto& output : m_outputs)
        output->Write();
    m_picked.Clear();
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
    CDialogDIConnections picker(GetDlgItem(InputId(number, kDigitalEdit)), number, m_root, m_picked.Of(number));
    if (picker.DoModal() != kIdCloseDialog)
        return;
    m_picked.Pick(number, picker.GetChange());
    ShowConnections();
    ShowStates();
}

void CDialogDIDOSettings::ShowConnections() {
    for (int number = 1; number <= kDigitalTerminals; ++number)
        SetControlText(GetDlgItem(InputId(number, kDigitalConnection)),
                       m_picked.IsWaiting(number) ? kWaiting : m_selectors.UseOf(number).text);
}

void CDialogDIDOSettings::InversionClicked(int number) {
    const CParameter* inversion = m_inversions[At(number)];
    const bool ticked = GetControl<QAbstractButton>(InputId(number, kDigitalInvert))->isChecked();
    if (inversion && ticked != (inversion->GetActualValue() == 1))
        MarkChanged(DIInversionRegister(number));
    else
        UnmarkChanged(DIInversionRegister(number));
}

/// False when the drive has such states and they could not be read.
bool CDialogDIDOSettings::ReadStates(States& states) {
    states.read = ReadParameter(states.parameter);
    return states.read || !states.parameter;
}

/// "?" at terminals that wait for Apply.
void CDialogDIDOSettings::ShowStates() {
    std::array<QWidget*, kDigitalTerminals> inputs{};
    std::array<QWidget*, kDigitalTerminals> outputs{};
    const auto take = [this](QWidget*& shown, int id, bool waiting) {
        if (waiting)
            SetControlText(GetDlgItem(id), kWaiting);
        else
            shown = GetDlgItem(id);
    };
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        take(inputs[At(number)], InputId(number, kDigitalStatus), m_picked.IsWaiting(number));
        take(outputs[At(number)], OutputId(number, kDigitalStatus), m_outputs[At(number)]->IsChanged());
    }
    ShowStatusBits(m_inputStates.parameter, m_inputStates.read, inputs);
    ShowStatusBits(m_outputStates.parameter, m_outputStates.read, outputs);
}

void CDialogDIDOSettings::Refresh() {
    UpdatePlan plan;
    for (States* states : {&m_inputStates, &m_outputStates})
        plan.AddStep([this, states] {
            const bool read = ReadStates(*states);
            ShowStates();
            return read;
        });
    BeginUpdatePass(*this, m_timer, std::move(plan));
}

void CDialogDIDOSettings::OnTimer(int id) {
    if (id == kDigitalUpdateKey)
        Refresh();
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
