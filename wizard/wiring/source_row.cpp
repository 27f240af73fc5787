#include "wizard/wiring/source_row.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/params/validation.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/terminal_registers.h"
#include "wizard/platform/window.h"
#include "wizard/wiring/index_choices.h"
#include "wizard/wiring/selector_list.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace krt550 {
namespace {

constexpr quint32 KeyOf(quint16 index, quint16 bit) {
    return (quint32{index} << 16) | bit;
}

QString NumberOfSource(quint32 key) {
    return QStringLiteral("%1, %2").arg(key >> 16).arg(key & 0xFFFF);
}

bool Reported(const CParameter& parameter, bool success) {
    if (!success)
        ShowLastError(&parameter);
    return success;
}

} // namespace

CSourceRow::CSourceRow(CWindow& window, int number, const SourceRowIds& ids)
    : m_window(window), m_indexRegister(DOIndexRegister(number)), m_bitRegister(DOBitRegister(number)), m_ids(ids) {
    m_window.Handle(ids.choice, ControlEvent::Selected, [this] { Chosen(); });
    for (const int id : {ids.index, ids.bit}) {
        m_window.Handle(id, ControlEvent::Changed, [this] { Edited(); });
        m_window.Handle(id, ControlEvent::FocusLost, [this] { Left(); });
    }
    m_window.Handle(ids.invert, ControlEvent::Clicked, [this] { Edited(); });
}

bool CSourceRow::Bind(CParameterGroup* root, const IndexList& list, QString& errors) {
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_read = false;
    m_index = m_bit = nullptr;
    Unmark();
    auto* dropDown = m_window.GetControl<QComboBox>(m_ids.choice);
    auto* invert = m_window.GetControl<QAbstractButton>(m_ids.invert);
    dropDown->clear();
    for (const int id : {m_ids.index, m_ids.bit})
        SetControlText(m_window.GetDlgItem(id), QString());
    SetTick(invert, false);
    if (!IsSound(list)) {
        ShowMessageBox(QStringLiteral("Error while population DO index"), MessageIcon::Stop);
        return false;
    }
    m_index = FindInTree(root, m_indexRegister);
    m_bit = FindInTree(root, m_bitRegister);
    const bool found = m_index && m_bit;
    for (const int id : {m_ids.choice, m_ids.index, m_ids.bit, m_ids.invert})
        EnableControl(m_window.GetDlgItem(id), found);
    if (!found) {
        AppendNotFound(errors, m_index ? m_bitRegister : m_indexRegister);
        m_index = m_bit = nullptr;
        return true;
    }
    m_list = list;
    const bool indexRead = ReadParameter(m_index);
    m_read = ReadParameter(m_bit) && indexRead;
    FillIndexChoices(*dropDown, m_list, NumberOfSource);
    dropDown->setCurrentIndex(-1);
    if (!m_read) {
        ShowMessageBox(QStringLiteral("Error while uploading AO parameter"), MessageIcon::Stop);
        return false;
    }
    SetTick(invert, IsInvertedIndex(m_index->GetValue()));
    SetControlText(m_window.GetDlgItem(m_ids.index), QString::number(PlainIndex(m_index->GetValue())));
    SetControlText(m_window.GetDlgItem(m_ids.bit), QString::number(m_bit->GetValue()));
    ShowChoiceOfEdits();
    return true;
}

bool CSourceRow::IsChanged() const {
    return krt550::IsChanged(m_indexRegister) || krt550::IsChanged(m_bitRegister);
}

void CSourceRow::Unmark() {
    UnmarkChanged(m_indexRegister);
    UnmarkChanged(m_bitRegister);
}

void CSourceRow::ShowView(bool basic) {
    ShowControl(m_window.GetDlgItem(m_ids.choice), basic);
    for (const int id : {m_ids.index, m_ids.bit})
        ShowControl(m_window.GetDlgItem(id), !basic);
}

void CSourceRow::Chosen() {
    const int choice = m_window.GetControl<QComboBox>(m_ids.choice)->currentIndex();
    if (!m_index)
        return;
    if (choice <= kOtherChoice) {
        ShowChoiceOfEdits();
        return;
    }
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        const quint32 key = m_list.keys[choice - 1];
        SetControlText(m_window.GetDlgItem(m_ids.index), QString::number(key >> 16));
        SetControlText(m_window.GetDlgItem(m_ids.bit), QString::number(key & 0xFFFF));
    }
    Judge(true);
}

void CSourceRow::Edited() {
    if (m_index && !m_showing)
        Judge(false);
}

void CSourceRow::Left() {
    if (!m_index)
        return;
    MoveSignIntoTick();
    ShowChoiceOfEdits();
}

/// A minus sign says the same as the tick; what is shown is the one or the other.
void CSourceRow::MoveSignIntoTick() {
    const QString typed = TypedIndex();
    if (!typed.startsWith(QLatin1Char('-')) || typed.toInt() >= 0)
        return;
    const QScopedValueRollback<bool> showing(m_showing, true);
    SetControlText(m_window.GetDlgItem(m_ids.index), typed.mid(1));
    SetTick(m_window.GetControl<QAbstractButton>(m_ids.invert), true);
}

QString CSourceRow::TypedIndex() const {
    return GetControlText(m_window.GetDlgItem(m_ids.index)).trimmed();
}

/// The typed index with the sign that the tick gives it.
QString CSourceRow::SignedIndex() const {
    const QString typed = TypedIndex();
    const bool inverted = m_window.GetControl<QAbstractButton>(m_ids.invert)->isChecked();
    return inverted && typed.toInt() > 0 ? QLatin1Char('-') + typed : typed;
}

void CSourceRow::ShowChoiceOfEdits() {
    bool isIndex = false;
    bool isBit = false;
    const quint16 index = TypedIndex().toUShort(&isIndex);
    const quint16 bit = GetControlText(m_window.GetDlgItem(m_ids.bit)).trimmed().toUShort(&isBit);
    m_window.GetControl<QComboBox>(m_ids.choice)
        ->setCurrentIndex(isIndex && isBit ? ChoiceOfKey(m_list, KeyOf(index, bit)) : kOtherChoice);
}

/// What was set back to what the drive holds is no change; a source that was chosen is written as a whole otherwise.
void CSourceRow::Judge(bool chosen) {
    const bool index = !m_read || SignedIndex() != QString::number(static_cast<qint16>(m_index->GetActualValue()));
    const bool bit =
        !m_read || GetControlText(m_window.GetDlgItem(m_ids.bit)).trimmed() != QString::number(m_bit->GetActualValue());
    Unmark();
    if (index || (chosen && bit))
        MarkChanged(m_indexRegister);
    if (bit)
        MarkChanged(m_bitRegister);
    if (m_onChange)
        m_onChange();
}

bool CSourceRow::WriteIndex(quint16& former) {
    former = m_index->GetActualValue();
    return Reported(*m_index, m_index->SetStringValue(SignedIndex())) && WriteParameter(m_index);
}

bool CSourceRow::Write() {
    if (!m_index || !IsChanged())
        return true;
    MoveSignIntoTick();
    QString index = SignedIndex();
    QString bit = GetControlText(m_window.GetDlgItem(m_ids.bit)).trimmed();
    if (index.isEmpty() || bit.isEmpty())
        return true;
    if (!ValidateValueText(m_index, index) || !ValidateValueText(m_bit, bit))
        return false;
    quint16 former = 0;
    const bool indexChanged = krt550::IsChanged(m_indexRegister);
    if (indexChanged && !WriteIndex(former))
        return false;
    if (!krt550::IsChanged(m_bitRegister)) {
        Unmark();
        return true;
    }
    if (Reported(*m_bit, m_bit->SetStringValue(bit)) && WriteParameter(m_bit)) {
        Unmark();
        return true;
    }
    if (indexChanged && m_read && m_index->SetValue(former, false))
        WriteParameter(m_index);
    return false;
}

} // namespace krt550
