#include "wizard/assistants/wiring_dialogs/analog_inputs.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/assistants/wiring_dialogs/connections.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/read_once.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kInputUpdateKey = 101;
constexpr int kInputs = 4;
constexpr quint16 kInputTerminals[kInputs] = {503, 504, 505, 506};
constexpr int kMultipleConnections = 375;

constexpr quint16 TerminalOf(int input) {
    return kInputTerminals[input - 1];
}

} // namespace

CDialogAISettings::CDialogAISettings(QWidget* owner)
    : CDialogAnalogSettings(kAnalogueInputRows, kInputUpdateKey, QStringLiteral("ai.htm"), owner) {
    for (int input = 1; input <= kInputs; ++input)
        Handle(ChannelId(input, kChannelEdit), ControlEvent::Clicked, [this, input] { PickConnections(input); });
}

bool CDialogAISettings::Bind(QString& errors) {
    const bool bound = GetRows().Bind(GetRoot(), errors);
    ShowConnections();
    ShowConvertedValues();
    return bound;
}

void CDialogAISettings::Empty() {
    CDialogAnalogSettings::Empty();
    for (int input = 1; input <= kInputs; ++input)
        EnableControl(GetDlgItem(ChannelId(input, kChannelEdit)), false);
}

bool CDialogAISettings::HasActualValues() const {
    return std::ranges::any_of(kInputTerminals, [this](quint16 reg) { return FindInTree(GetRoot(), reg); });
}

/// Each selector is read once. What was picked is applied now, or forgotten.
void CDialogAISettings::ShowConnections() {
    m_picked.Clear();
    CReadOnce reads;
    const CSelectorList selectors(InputKind::Analogue, GetRoot(), reads);
    for (int input = 1; input <= kInputs; ++input) {
        UseOf(input) = selectors.UseOf(input);
        SetControlText(GetDlgItem(ChannelId(input, kChannelConnection)), UseOf(input).text);
    }
}

void CDialogAISettings::ShowConvertedValues() {
    for (int input = 1; input <= kInputs; ++input)
        ShowConvertedValue(input);
}

bool CDialogAISettings::ShowConvertedValue(int input) {
    const InputUse& use = UseOf(input);
    const bool read = use.converted && ReadParameter(use.converted);
    if (read)
        ShowTexts(input, FormatValueText(use.converted), use.converted->GetUnit());
    else
        ShowTexts(input, use.multiple ? LoadText(kMultipleConnections) : QString(), QString());
    return read || !use.converted;
}

void CDialogAISettings::ShowTexts(int input, const QString& converted, const QString& unit) {
    SetControlText(GetDlgItem(ChannelId(input, kChannelConverted)), converted);
    SetControlText(GetDlgItem(ChannelId(input, kChannelConvertedUnit)), unit);
}

/// What was picked and is not applied says nothing about the drive yet.
void CDialogAISettings::ShowWaiting(int input) {
    const QString unknown = QStringLiteral("?");
    SetControlText(GetDlgItem(ChannelId(input, kChannelConnection)), unknown);
    if (const CRow* terminal = GetRows().Find(TerminalOf(input)); terminal->GetParameter())
        SetControlText(terminal->GetValueControl(), unknown);
    ShowTexts(input, unknown, unknown);
}

/// An input with something picked goes on showing that nothing is known.
CDialogAnalogSettings::Steps CDialogAISettings::ActualValues() {
    Steps steps;
    for (int input = 1; input <= kInputs; ++input) {
        steps.push_back([this, input] { return m_picked.IsWaiting(input) || ShowActualValue(TerminalOf(input)); });
        steps.push_back([this, input] { return m_picked.IsWaiting(input) || ShowConvertedValue(input); });
    }
    steps.push_back([this] { return ShowActualValue(kSpeedScaling); });
    return steps;
}

void CDialogAISettings::PickConnections(int input) {
    CDialogAIConnections picker(GetDlgItem(ChannelId(input, kChannelEdit)), input, GetRoot(), m_picked.Of(input));
    if (picker.DoModal() != kIdCloseDialog)
        return;
    const CPendingConnections before = m_picked;
    m_picked.Pick(input, picker.GetChange());
    bool takenBack = false;
    for (int each = 1; each <= kInputs; ++each) {
        if (m_picked.IsWaiting(each))
            ShowWaiting(each);
        else
            SetControlText(GetDlgItem(ChannelId(each, kChannelConnection)), UseOf(each).text);
        takenBack = takenBack || (before.IsWaiting(each) && !m_picked.IsWaiting(each));
    }
    if (takenBack)
        Refresh();
}

bool CDialogAISettings::Write() {
    const bool written = m_picked.Write(GetRoot());
    return GetRows().Write() && written;
}

void CDialogAISettings::Applied(bool written) {
    ShowConnections();
    if (written)
        Refresh();
    else
        ShowConvertedValues();
}

} // namespace krt550
