#include "wizard/wiring/index_row.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/params/validation.h"
#include "wizard/platform/control_factory.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/window.h"
#include "wizard/wiring/index_choices.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <limits>
#include <optional>

namespace krt550 {
namespace {

constexpr int kSigned16 = 2;

/// What the drive holds, in decimal.
QString DecimalText(const CParameter& parameter) {
    const quint16 word = parameter.GetActualValue();
    return QString::number(parameter.GetDataType() == kSigned16 ? static_cast<qint16>(word) : int{word});
}

/// The word that a text stands for; nothing for a text that is no number of 16 bits.
std::optional<quint16> WordOfText(const QString& text) {
    bool whole = false;
    const int number = text.trimmed().toInt(&whole);
    if (!whole || number < std::numeric_limits<qint16>::min() || number > std::numeric_limits<quint16>::max())
        return std::nullopt;
    return static_cast<quint16>(number);
}

} // namespace

CIndexRow::CIndexRow(CWindow& window, quint16 reg, const IndexRowIds& ids, const IndexRowTexts& texts)
    : m_window(window), m_register(reg), m_ids(ids), m_texts(texts) {
    m_window.Handle(ids.choice, ControlEvent::Selected, [this] { Chosen(); });
    m_window.Handle(ids.index, ControlEvent::Changed, [this] { Edited(); });
    m_window.Handle(ids.index, ControlEvent::FocusLost, [this] { Left(); });
}

bool CIndexRow::Bind(CParameterGroup* root, const IndexList& list, QString& errors) {
    const QScopedValueRollback<bool> showing(m_showing, true);
    m_parameter = nullptr;
    m_read = false;
    Unmark();
    auto* dropDown = m_window.GetControl<QComboBox>(m_ids.choice);
    auto* edit = m_window.GetControl<QLineEdit>(m_ids.index);
    dropDown->clear();
    SetControlText(edit, QString());
    if (!IsSound(list)) {
        ShowMessageBox(QString::fromLatin1(m_texts.unequalLists), MessageIcon::Stop);
        return false;
    }
    m_parameter = FindInTree(root, m_register);
    for (QWidget* control : {static_cast<QWidget*>(dropDown), static_cast<QWidget*>(edit)})
        EnableControl(control, m_parameter);
    if (!m_parameter) {
        AppendNotFound(errors, m_register);
        return true;
    }
    m_list = list;
    if (IsNumeric(*m_parameter))
        RegisterForUpdate(m_parameter, edit);
    SetControlText(m_window.GetDlgItem(m_ids.label),
                   m_caption.isEmpty() ? QString::number(m_register) + QLatin1Char(' ') + ParameterName(*m_parameter)
                                       : m_caption);
    m_read = ReadParameter(m_parameter);
    if (!m_read)
        ShowMessageBox(QString::fromLatin1(m_texts.readFailed), MessageIcon::Stop);
    FillIndexChoices(*dropDown, m_list,
                     m_texts.numbered ? [](quint32 key) { return QString::number(key); }
                                      : std::function<QString(quint32)>());
    SetControlText(edit, m_read ? DecimalText(*m_parameter) : QString());
    dropDown->setCurrentIndex(m_read ? ChoiceOfKey(m_list, m_parameter->GetValue()) : -1);
    return m_read;
}

bool CIndexRow::Write() {
    if (!m_parameter || !IsChanged())
        return true;
    const QScopedValueRollback<bool> showing(m_showing, true);
    QWidget* edit = m_window.GetDlgItem(m_ids.index);
    const bool empty = GetControlText(edit).isEmpty();
    const bool success = WriteRow(m_parameter, edit, false);
    m_read = success && (m_read || !empty);
    if (m_read) {
        SetControlText(edit, DecimalText(*m_parameter));
        ShowChoiceOfEdit();
    }
    return success;
}

bool CIndexRow::IsChanged() const {
    return krt550::IsChanged(m_register);
}

void CIndexRow::Unmark() {
    UnmarkChanged(m_register);
}

void CIndexRow::ShowView(bool basic) {
    ShowControl(m_window.GetDlgItem(m_ids.choice), basic);
    ShowControl(m_window.GetDlgItem(m_ids.index), !basic);
    if (auto* label = m_window.GetControl<QLabel>(m_ids.label))
        NameControl(*label, m_window.GetDlgItem(basic ? m_ids.choice : m_ids.index));
}

void CIndexRow::Chosen() {
    const auto* dropDown = m_window.GetControl<QComboBox>(m_ids.choice);
    const int choice = dropDown->currentIndex();
    if (!m_parameter)
        return;
    if (choice <= kOtherChoice) {
        ShowMessageBox(LoadText(m_texts.otherChosen), MessageIcon::None);
        ShowChoiceOfEdit();
        return;
    }
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        SetControlText(m_window.GetDlgItem(m_ids.index), QString::number(m_list.keys[choice - 1]));
    }
    Judge();
}

void CIndexRow::Edited() {
    if (!m_parameter || m_showing)
        return;
    if (UpdatingScope::IsActive()) // the cyclic update writes into the edit alone
        ShowChoiceOfEdit();
    else
        Judge();
}

void CIndexRow::Left() {
    if (!m_parameter)
        return;
    ShowChoiceOfEdit();
    if (IsChanged())
        ValidateControlValue(m_parameter, m_window.GetDlgItem(m_ids.index));
}

void CIndexRow::ShowChoiceOfEdit() {
    auto* dropDown = m_window.GetControl<QComboBox>(m_ids.choice);
    const std::optional<quint16> word = WordOfText(GetControlText(m_window.GetDlgItem(m_ids.index)));
    dropDown->setCurrentIndex(word ? ChoiceOfKey(m_list, *word) : kOtherChoice);
}

/// What was typed back to what the drive holds is no change.
void CIndexRow::Judge() {
    const QString typed = GetControlText(m_window.GetDlgItem(m_ids.index)).trimmed();
    if (m_read && typed == DecimalText(*m_parameter)) {
        Unmark();
        return;
    }
    MarkChanged(m_register);
    ShowWaiting();
}

void CIndexRow::ShowWaiting() {
    for (const int id : {m_ids.value, m_ids.unit})
        SetControlText(m_window.GetDlgItem(id), QStringLiteral("?"));
}

} // namespace krt550
