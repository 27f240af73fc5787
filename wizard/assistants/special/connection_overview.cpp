#include "wizard/assistants/special/connection_overview.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/read_once.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/terminal_registers.h"
#include "wizard/platform/tool_tip.h"
#include "wizard/platform/window.h"
#include "wizard/shell/color_static.h"
#include "wizard/wiring/selector_list.h"

#include <algorithm>

namespace krt550 {
namespace {

const QString kUnknown = QStringLiteral("?");
constexpr int kNoteIds[] = {kIdNoteAttention, kIdNoteText, kIdNoteApply, kIdNoteOr, kIdNoteClose};

bool IsDrawn(int id) {
    for (const TerminalKind kind : kTerminalKinds) {
        for (int number = 1; number <= TerminalCount(kind); ++number)
            if (id == TerminalNameId(kind, number))
                return true;
        if (id == LegendPlainId(kind) || id == LegendInvertedId(kind))
            return true;
    }
    return std::ranges::find(kNoteIds, id) != std::end(kNoteIds);
}

} // namespace

QWidget* CConnectionOverview::MakeControl(int id, QWidget* parent) {
    if (!IsDrawn(id))
        return nullptr;
    auto* text = new CColorStatic(parent);
    // The frame behind it has a shade of its own.
    QPalette palette;
    palette.setColor(QPalette::Button, Qt::transparent);
    text->setPalette(palette);
    return text;
}

void CConnectionOverview::Dress() {
    for (const int id : kNoteIds)
        if (auto* word = m_window.GetControl<CColorStatic>(id))
            word->SetLook(StaticLook::Neutral);
    if (auto* attention = m_window.GetControl<CColorStatic>(kIdNoteAttention))
        attention->SetBoldFont();
    for (const int id : {kIdNoteApply, kIdNoteClose})
        if (auto* word = m_window.GetControl<CColorStatic>(id))
            word->SetItalicFont();
    for (const TerminalKind kind : kTerminalKinds) {
        if (auto* name = m_window.GetControl<CColorStatic>(LegendPlainId(kind)))
            name->SetInverted(false);
        if (auto* name = m_window.GetControl<CColorStatic>(LegendInvertedId(kind)))
            name->SetInverted(true);
    }
}

void CConnectionOverview::HideNote(CWindow& window) {
    for (const int id : kNoteIds)
        ShowControl(window.GetDlgItem(id), false);
}

void CConnectionOverview::Show(TerminalKind kind, CParameterGroup* root, CReadOnce& reads) {
    if (kind == TerminalKind::DigitalInput || kind == TerminalKind::AnalogueInput)
        ShowInputs(kind, root, reads);
    else
        ShowOutputs(kind, root, reads);
}

void CConnectionOverview::ShowAll(CParameterGroup* root, CReadOnce& reads) {
    for (const TerminalKind kind : kTerminalKinds)
        Show(kind, root, reads);
}

void CConnectionOverview::ShowUnknown() {
    for (const TerminalKind kind : kTerminalKinds)
        for (int number = 1; number <= TerminalCount(kind); ++number)
            ShowTerminal(kind, number, kUnknown, false);
}

void CConnectionOverview::EnableSettings(bool enable) {
    for (const TerminalKind kind : kTerminalKinds)
        EnableControl(m_window.GetDlgItem(EditParametersId(kind)), enable);
}

void CConnectionOverview::ShowInputs(TerminalKind kind, CParameterGroup* root, CReadOnce& reads) {
    const bool digital = kind == TerminalKind::DigitalInput;
    const CSelectorList selectors(digital ? InputKind::Digital : InputKind::Analogue, root, reads);
    for (int number = 1; number <= TerminalCount(kind); ++number) {
        CParameter* inversion = digital ? FindParameter(root, DIInversionRegister(number)) : nullptr;
        const bool inverted = reads.Read(inversion) && inversion->GetActualValue() == 1;
        ShowTerminal(kind, number, selectors.UseOf(number).text, inverted);
    }
}

void CConnectionOverview::AddReads(std::vector<quint16>& registers) {
    for (const InputKind kind : {InputKind::Digital, InputKind::Analogue}) {
        const std::vector<quint16>& selectors = ConnectionsOf(kind).Selectors();
        registers.insert(registers.end(), selectors.begin(), selectors.end());
    }
    for (int number = 1; number <= TerminalCount(TerminalKind::DigitalInput); ++number)
        registers.push_back(DIInversionRegister(number));
    for (int number = 1; number <= TerminalCount(TerminalKind::DigitalOutput); ++number)
        registers.insert(registers.end(), {DOIndexRegister(number), DOBitRegister(number)});
    for (int number = 1; number <= TerminalCount(TerminalKind::AnalogueOutput); ++number)
        registers.push_back(AOIndexRegister(number));
}

void CConnectionOverview::ShowOutputs(TerminalKind kind, CParameterGroup* root, CReadOnce& reads) {
    const bool digital = kind == TerminalKind::DigitalOutput;
    for (int number = 1; number <= TerminalCount(kind); ++number) {
        CParameter* index = FindParameter(root, digital ? DOIndexRegister(number) : AOIndexRegister(number));
        CParameter* bit = digital ? FindParameter(root, DOBitRegister(number)) : nullptr;
        const bool indexRead = reads.Read(index);
        const bool known = indexRead && (!digital || reads.Read(bit));
        const quint16 word = known ? index->GetActualValue() : quint16{0};
        const QString name = !known    ? kUnknown
                             : digital ? DOConnectionText(word, bit->GetActualValue())
                                       : AOConnectionText(word);
        ShowTerminal(kind, number, name, known && digital && IsInvertedIndex(word));
    }
}

void CConnectionOverview::ShowTerminal(TerminalKind kind, int number, const QString& connection, bool inverted) {
    SetControlText(m_window.GetDlgItem(ConnectionTextId(kind, number)), connection);
    auto* name = m_window.GetControl<CColorStatic>(TerminalNameId(kind, number));
    if (!name)
        return;
    name->SetInverted(inverted);
    // The colours say nothing to whoever does not see them.
    SetToolTip(name, inverted ? name->text() + QStringLiteral(" is inverted") : QString());
}

} // namespace krt550
