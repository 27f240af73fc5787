#include "wizard/params/row.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/params/validation.h"
#include "wizard/platform/control_factory.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/window.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace krt550 {

CRow::CRow(CWindow& window, const RowDef& definition, TextSource source)
    : m_window(window), m_definition(definition), m_ids(IdsOf(definition)), m_source(source),
      m_register(definition.reg), m_caption(QString::fromUtf8(definition.caption)), m_shown(!definition.hidden) {
    if (definition.kind == RowKind::Display)
        return;
    for (const int id : {m_ids.value, m_ids.list}) {
        m_window.Handle(id, ControlEvent::Changed, [this] { Edited(); });
        m_window.Handle(id, ControlEvent::Selected, [this] { Selected(); });
    }
    m_window.Handle(m_ids.value, ControlEvent::FocusLost, [this] { Validate(); });
}

void CRow::SetRegister(quint16 reg) {
    Unmark();
    m_register = reg;
    m_parameter = nullptr;
    for (const int id : {m_ids.value, m_ids.list})
        if (QWidget* control = Control(id))
            control->setProperty("register", reg != 0 ? QVariant(int(reg)) : QVariant());
}

QWidget* CRow::Control(int id) const {
    return m_window.GetDlgItem(id);
}

bool CRow::IsListInUse() const {
    return m_definition.kind == RowKind::EditOrList && m_parameter && m_parameter->IsValueList();
}

QWidget* CRow::GetValueControl() const {
    return Control(IsListInUse() ? m_ids.list : m_ids.value);
}

bool CRow::Bind(CParameterGroup* root, QString& errors) {
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_parameter = nullptr;
    m_read = m_register != 0 && BindControls(root, errors);
    const bool success = m_read || m_register == 0;
    if (m_register == 0) {
        Empty();
        SetControlText(Control(m_ids.label), QString());
    }
    ShowLabel();
    if (auto* label = m_window.GetControl<QLabel>(m_ids.label); label && m_ids.list != 0)
        NameControl(*label, GetValueControl());
    ShowOrHide();
    Unmark();
    return success;
}

bool CRow::BindControls(CParameterGroup* root, QString& errors) {
    QWidget* label = Control(m_ids.label);
    auto* edit = m_window.GetControl<QLineEdit>(m_ids.value);
    const RowStatics statics{Control(m_ids.unit), Control(m_ids.minimum), Control(m_ids.maximum)};
    switch (m_definition.kind) {
    case RowKind::Edit:
        return BindEditRow(root, m_parameter, m_register, label, edit, errors, statics);
    case RowKind::List:
        return BindListRow(root, m_parameter, m_register, label, m_window.GetControl<QComboBox>(m_ids.value), errors,
                           statics, m_source);
    case RowKind::EditOrList:
        return BindRow(root, m_parameter, m_register, label, edit, m_window.GetControl<QComboBox>(m_ids.list), errors,
                       statics);
    case RowKind::Index:
    case RowKind::Display:
        break;
    }
    const bool read = BindDisplayRow(root, m_parameter, m_register, label, Control(m_ids.value), errors, statics.unit);
    if (m_parameter && m_definition.refreshed)
        RegisterForUpdate(m_parameter, Control(m_ids.value));
    return read;
}

/// Binding has shown register and name, or the name alone.
void CRow::ShowLabel() {
    const bool givenAtRunTime = m_definition.reg == 0 && m_register != 0; // and so the layout's label says nothing
    if (!m_parameter) {
        if (givenAtRunTime)
            SetControlText(Control(m_ids.label),
                           (QString::number(m_register) + QLatin1Char(' ') + m_caption).trimmed());
        return;
    }
    const bool display = m_definition.kind == RowKind::Display;
    if (m_caption.isEmpty() && m_definition.numbered != display)
        return;
    const QString name = m_caption.isEmpty() ? ParameterName(*m_parameter) : m_caption;
    SetControlText(Control(m_ids.label),
                   m_definition.numbered ? QString::number(m_register) + QLatin1Char(' ') + name : name);
}

void CRow::Unbind() {
    m_parameter = nullptr;
    m_read = false;
    Empty();
    Unmark();
}

void CRow::Clear() {
    UnregisterForUpdate(m_parameter, GetValueControl());
    Empty();
    Unmark();
}

void CRow::Empty() {
    const QScopedValueRollback<bool> showing(m_showing, true);
    for (const int id : {m_ids.value, m_ids.list}) {
        if (auto* dropDown = m_window.GetControl<QComboBox>(id))
            dropDown->clear();
        SetControlText(Control(id), QString());
        EnableControl(Control(id), m_definition.kind == RowKind::Display);
    }
    for (const int id : {m_ids.unit, m_ids.minimum, m_ids.maximum})
        SetControlText(Control(id), QString());
}

bool CRow::Write(bool force) {
    if (m_definition.kind == RowKind::Display)
        return true;
    const bool wanted = force || IsChanged();
    const QScopedValueRollback<bool> showing(m_showing, true);
    const bool success = WriteRow(m_parameter, GetValueControl(), force, m_source);
    // What a drive that has refused a value holds now is not known: any choice is a change then.
    if (wanted)
        m_read = success;
    if (!success)
        m_former.clear();
    return success;
}

bool CRow::Reread() {
    if (!ReadParameter(m_parameter))
        return false;
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_read = true;
    ShowValueText(GetValueControl(), FormatValueText(m_parameter, m_source));
    Unmark();
    return true;
}

void CRow::TakeBack(quint16 word) {
    m_read = m_parameter->SetValue(word, false) && m_parameter->WriteToDrive(0);
    m_former = m_read ? FormatValueText(m_parameter, m_source) : QString();
    MarkChanged(m_register);
}

void CRow::Enter(const QString& text) {
    QWidget* control = GetValueControl();
    if (!m_parameter || !control || !control->isEnabled())
        return;
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        ShowValueText(control, text);
    }
    Changed();
}

bool CRow::IsChanged() const {
    return m_register != 0 && krt550::IsChanged(m_register);
}

void CRow::Unmark() {
    UnmarkChanged(m_register);
}

void CRow::Show(bool show) {
    m_shown = show;
    ShowOrHide();
}

void CRow::ShowOrHide() {
    const bool found = m_parameter || m_definition.whenMissing == WhenMissing::Disable;
    const bool shown = m_shown && found;
    const bool list = IsListInUse();
    for (const int id : {m_ids.label, list ? m_ids.list : m_ids.value})
        ShowControl(Control(id), shown);
    if (m_ids.list != 0)
        ShowControl(Control(list ? m_ids.value : m_ids.list), false);
    for (const int id : {m_ids.unit, m_ids.minimum, m_ids.maximum})
        ShowControl(Control(id), shown && !list);
}

void CRow::Edited() {
    if (!m_showing)
        Changed();
}

void CRow::Selected() {
    const auto* dropDown = qobject_cast<QComboBox*>(GetValueControl());
    if (!dropDown || !m_parameter)
        return;
    if (!IsChanged())
        m_former = m_read ? FormatValueText(m_parameter, m_source) : QString();
    if (!m_former.isEmpty() && dropDown->currentText().compare(m_former, Qt::CaseInsensitive) == 0)
        TakenBack();
    else
        Changed();
}

void CRow::Changed() {
    if (m_register == 0 || !m_parameter)
        return;
    MarkChanged(m_register);
    if (m_onChange && IsChanged())
        m_onChange();
}

void CRow::TakenBack() {
    const bool was = IsChanged();
    Unmark();
    if (m_onChange && was)
        m_onChange();
}

/// An edit that shows nothing because its parameter was not read has nothing to be judged.
void CRow::Validate() const {
    const QWidget* control = GetValueControl();
    if (IsChanged() || !GetControlText(control).isEmpty())
        ValidateControlValue(m_parameter, control);
}

} // namespace krt550
