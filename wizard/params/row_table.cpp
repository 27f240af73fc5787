#include "wizard/params/row_table.h"

#include "wizard/params/changed_registers.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/params/validation.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/row_ids.h"
#include "wizard/platform/window.h"
#include "wizard/texts/wizard_text_store.h"

#include <QComboBox>
#include <QLineEdit>

namespace krt550 {
namespace {

QString TextOf(const RowDef& row) {
    return QString::fromLatin1(row.reg.data(), static_cast<qsizetype>(row.reg.size()));
}

quint16 RegisterOf(const RowDef& row) {
    return TextOf(row).toUShort();
}

} // namespace

CRowTable::CRowTable(CWindow& window, std::span<const RowDef> rows)
    : m_window(window), m_rows(rows), m_parameters(rows.size(), nullptr) {
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const int value = IdsOf(row).value;
        const auto mark = [reg = RegisterOf(m_rows[row])] { MarkChanged(reg); };
        if (m_rows[row].kind == RowKind::List)
            m_window.Handle(value, ControlEvent::Selected, mark);
        if (m_rows[row].kind != RowKind::Edit)
            continue;
        m_window.Handle(value, ControlEvent::Changed, mark);
        m_window.Handle(value, ControlEvent::FocusLost, [this, row] { Validate(row); });
    }
}

bool CRowTable::Bind(CParameterGroup* root, QString& errors) {
    return Bind(root, errors, 0, m_rows.size());
}

bool CRowTable::Bind(CParameterGroup* root, QString& errors, std::size_t first, std::size_t count) {
    const FailurePass pass;
    bool success = true;
    for (std::size_t row = first; row < first + count; ++row)
        success = BindRow(root, errors, row) && success;
    return success;
}

bool CRowTable::BindRow(CParameterGroup* root, QString& errors, std::size_t row) {
    const RowIds ids = IdsOf(row);
    const QString reg = TextOf(m_rows[row]);
    QWidget* label = m_window.GetDlgItem(ids.label);
    const RowStatics statics{m_window.GetDlgItem(ids.unit), m_window.GetDlgItem(ids.minimum),
                             m_window.GetDlgItem(ids.maximum)};
    CParameter*& parameter = m_parameters[row];
    switch (m_rows[row].kind) {
    case RowKind::Edit:
        return BindEditRow(root, parameter, reg, label, m_window.GetControl<QLineEdit>(ids.value), errors, statics);
    case RowKind::List:
        return BindListRow(root, parameter, reg, label, m_window.GetControl<QComboBox>(ids.value), errors, statics);
    case RowKind::Display:
        break;
    }
    return BindDisplayRow(root, parameter, reg, label, m_window.GetDlgItem(ids.value), errors, statics.unit);
}

bool CRowTable::Write() {
    return Write(0, m_rows.size());
}

bool CRowTable::Write(std::size_t first, std::size_t count) {
    const FailurePass pass;
    bool success = true;
    for (std::size_t row = first; row < first + count; ++row)
        if (m_rows[row].kind != RowKind::Display)
            success = WriteRow(m_parameters[row], GetValueControl(row), false) && success;
    return success;
}

bool CRowTable::Reread(std::size_t first, std::size_t count) {
    const FailurePass pass;
    bool success = true;
    for (std::size_t row = first; row < first + count; ++row)
        success = RereadRow(m_parameters[row], GetValueControl(row)) && success;
    return success;
}

void CRowTable::Unbind() {
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        m_parameters[row] = nullptr;
        UnbindRow(GetValueControl(row), RegisterOf(m_rows[row]));
    }
}

/// An edit that shows nothing because its parameter was not read has nothing to be judged.
void CRowTable::Validate(std::size_t row) const {
    const QWidget* edit = GetValueControl(row);
    if (IsChanged(RegisterOf(m_rows[row])) || !GetControlText(edit).isEmpty())
        ValidateControlValue(m_parameters[row], edit);
}

void CRowTable::Unmark() const {
    for (const RowDef& row : m_rows)
        UnmarkChanged(RegisterOf(row));
}

void CRowTable::AttachToolTips(const std::function<void(int labelId, const QString& text)>& addToolTip) const {
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        addToolTip(IdsOf(row).label, CWizardTextStore::Instance().GetToolTip(RegisterOf(m_rows[row])));
}

QWidget* CRowTable::GetValueControl(std::size_t row) const {
    return m_window.GetDlgItem(IdsOf(row).value);
}

RowIds CRowTable::IdsOf(std::size_t row) const {
    const RowDef& definition = m_rows[row];
    if (definition.ids.value != 0)
        return definition.ids;
    const quint16 reg = RegisterOf(definition);
    return {LabelId(reg), ValueId(reg), UnitId(reg), MinimumId(reg), MaximumId(reg)};
}

} // namespace krt550
