#include "wizard/assistants/wiring_dialogs/analog_outputs.h"

#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/tool_tip.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kOutputUpdateKey = 102;
constexpr int kNothingToUpdate = 360;
/// Rows of an output besides its index row, in the order in which they are bound and written.
constexpr std::size_t kRowsPerOutput = 3;

struct OutputRegisters {
    quint16 index;
    quint16 terminal;
};
constexpr OutputRegisters kOutputs[] = {{1501, 511}, {1506, 512}};
constexpr int kOutputCount = static_cast<int>(std::size(kOutputs));

} // namespace

CDialogAOSettings::CDialogAOSettings(QWidget* owner)
    : CDialogAnalogSettings(kAnalogueOutputRows, kOutputUpdateKey, QStringLiteral("ao.htm"), owner) {
    for (int output = 1; output <= kOutputCount; ++output) {
        const auto [index, terminal] = kOutputs[output - 1];
        m_outputs.push_back({std::make_unique<CIndexRow>(*this, index,
                                                         IndexRowIds{.label = LabelId(index),
                                                                     .choice = ChannelId(output, kChannelChoice),
                                                                     .index = ValueId(index),
                                                                     .value = ValueId(terminal),
                                                                     .unit = UnitId(terminal)})});
        Handle(ChannelId(output, kChannelView), ControlEvent::Clicked,
               [this, output] { ShowView(output, !m_outputs[static_cast<std::size_t>(output - 1)].basicView); });
    }
}

bool CDialogAOSettings::OnInitDialog() {
    for (int output = 1; output <= kOutputCount; ++output)
        ShowView(output, true);
    for (const auto& [index, terminal] : kOutputs)
        SetToolTip(GetDlgItem(LabelId(index)), CWizardTextStore::Instance().GetToolTip(index));
    return CDialogAnalogSettings::OnInitDialog();
}

void CDialogAOSettings::ShowView(int output, bool basic) {
    auto& [index, basicView] = m_outputs[static_cast<std::size_t>(output - 1)];
    basicView = basic;
    index->ShowView(basic);
    ShowControl(GetDlgItem(ChannelId(output, kChannelHeading)), !basic);
    QWidget* button = GetDlgItem(ChannelId(output, kChannelView));
    SetViewText(button, basic);
    button->setAccessibleName(QStringLiteral("%1 view of AO%2").arg(GetControlText(button)).arg(output));
}

void CDialogAOSettings::Empty() {
    CDialogAnalogSettings::Empty();
    for (int output = 1; output <= kOutputCount; ++output)
        for (const int id : {ChannelId(output, kChannelChoice), ValueId(kOutputs[output - 1].index)})
            EnableControl(GetDlgItem(id), false);
}

bool CDialogAOSettings::Bind(QString& errors) {
    const IndexList signalList = CWizardTextStore::Instance().GetAOList();
    CRowTable& rows = GetRows();
    bool bound = true;
    std::size_t row = 0;
    for (const Output& output : m_outputs) {
        bound = output.index->Bind(GetRoot(), signalList, errors) && bound;
        bound = rows.Bind(GetRoot(), errors, row, kRowsPerOutput) && bound;
        row += kRowsPerOutput;
    }
    return rows.Bind(GetRoot(), errors, row, rows.size() - row) && bound;
}

bool CDialogAOSettings::HasActualValues() const {
    const auto has = [this](quint16 reg) { return FindInTree(GetRoot(), reg) != nullptr; };
    return has(kSpeedScaling) || std::ranges::any_of(kOutputs, has, &OutputRegisters::terminal);
}

void CDialogAOSettings::TellNoActualValues() {
    ShowMessageBox(LoadText(kNothingToUpdate), MessageIcon::None);
}

/// Beside an index that was changed nothing is known.
CDialogAnalogSettings::Steps CDialogAOSettings::ActualValues() {
    Steps steps;
    for (std::size_t output = 0; output < m_outputs.size(); ++output)
        steps.push_back([this, output] {
            return m_outputs[output].index->IsChanged() || ShowActualValue(kOutputs[output].terminal);
        });
    steps.push_back([this] { return ShowActualValue(kSpeedScaling); });
    return steps;
}

bool CDialogAOSettings::Write() {
    CRowTable& rows = GetRows();
    bool written = true;
    std::size_t row = 0;
    for (const Output& output : m_outputs) {
        written = output.index->Write() && written;
        for (const std::size_t end = row + kRowsPerOutput; row < end; ++row)
            written = rows[row].Write() && written;
    }
    return written;
}

void CDialogAOSettings::Applied(bool written) {
    if (written)
        Refresh();
}

void CDialogAOSettings::Unmark() {
    CDialogAnalogSettings::Unmark();
    for (const Output& output : m_outputs)
        output.index->Unmark();
}

} // namespace krt550
