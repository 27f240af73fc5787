#include "wizard/params/parameter_rows.h"

#include "hostlib/tolvbo32/dtoa.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/validation.h"
#include "wizard/platform/control_text.h"
#include "wizard/texts/wizard_text_store.h"

#include <QComboBox>
#include <QLineEdit>

#include <algorithm>
#include <memory>

namespace krt550 {

std::optional<quint16> WordOfChoice(const CParameter& parameter, const QString& text, TextSource source) {
    quint16 word = 0;
    if (FindValueOfText(source, parameter.GetRegister(), text, word))
        return word;
    for (const auto& [value, entry] : parameter.GetDescription().values)
        if (entry.compare(text, Qt::CaseInsensitive) == 0)
            return value;
    return std::nullopt;
}

QString ParameterName(const CParameter& parameter) {
    const QString name = CWizardTextStore::Instance().GetParameterName(parameter.GetRegister());
    return name.isEmpty() ? parameter.GetName() : name;
}

void ShowValueText(QWidget* control, const QString& text) {
    if (auto* dropDown = qobject_cast<QComboBox*>(control))
        SelectChoice(dropDown, text);
    else
        SetControlText(control, text);
}

namespace {

constexpr int kNumericTypes[] = {2, 3, 4, 5, 8, 10};
const QLatin1String kExcludedEntry("#excl#");

void AppendError(QString& errors, int message, quint16 reg) {
    errors += QLatin1String("- ") + MessageFor(message, reg) + QLatin1Char('\n');
}

void SetRowLabel(QWidget* label, quint16 reg, const CParameter& parameter) {
    SetControlText(label, QString::number(reg) + QLatin1Char(' ') + ParameterName(parameter));
}

void FillStatics(const RowStatics& statics, const CParameter& parameter) {
    constexpr int kLimitDecimals = 2;
    SetControlText(statics.unit, parameter.GetUnit());
    SetControlText(statics.minimum, dtoa(parameter.GetMinValue(), kLimitDecimals));
    SetControlText(statics.maximum, dtoa(parameter.GetMaxValue(), kLimitDecimals));
}

void EmptyStatics(const RowStatics& statics) {
    for (QWidget* control : {statics.unit, statics.minimum, statics.maximum})
        SetControlText(control, QString());
}

void FillChoices(QComboBox& dropDown, const CParameter& parameter, quint16 reg, TextSource source) {
    if (HasValueTexts(source, reg)) {
        dropDown.addItems(AllValueTexts(source, reg));
        return;
    }
    const std::unique_ptr<QStringList> entries(parameter.GetValueList());
    if (!entries)
        return;
    for (const QString& entry : *entries)
        if (entry != kExcludedEntry)
            dropDown.addItem(entry);
}

/// Selects the text, adding it as a choice when it is missing.
bool SelectOrAdd(QComboBox& dropDown, const QString& text) {
    if (SelectChoice(&dropDown, text))
        return true;
    if (text.isEmpty())
        return false;
    dropDown.addItem(text);
    return SelectChoice(&dropDown, text);
}

/// Sets the parameter object from a drop-down's text.
bool SetFromChoice(CParameter& parameter, const QString& text, TextSource source) {
    quint16 value = 0;
    if (FindValueOfText(source, parameter.GetRegister(), text, value))
        return parameter.SetValue(value, false);
    return parameter.SetStringValue(text);
}

bool Reported(const CParameter& parameter, bool success) {
    if (!success)
        ShowLastError(&parameter);
    return success;
}

bool WriteChoice(CParameter& parameter, QComboBox& dropDown, TextSource source) {
    if (!Reported(parameter, SetFromChoice(parameter, dropDown.currentText(), source)) || !WriteParameter(&parameter))
        return false;
    const bool read = ReadParameter(&parameter);
    SelectChoice(&dropDown, FormatValueText(&parameter, source));
    UnmarkChanged(parameter.GetRegister());
    return read;
}

bool WriteEdit(CParameter& parameter, QLineEdit& edit) {
    QString text = edit.text();
    bool read = true;
    if (!text.isEmpty()) {
        if (!ValidateValueText(&parameter, text) || !Reported(parameter, parameter.SetStringValue(text)) ||
            !WriteParameter(&parameter))
            return false;
        read = ShowParameterValue(&parameter, &edit);
    }
    UnmarkChanged(parameter.GetRegister());
    return read;
}

} // namespace

bool IsNumeric(const CParameter& parameter) {
    return std::ranges::find(kNumericTypes, parameter.GetType()) != std::end(kNumericTypes);
}

void AppendNotFound(QString& errors, quint16 reg) {
    AppendError(errors, kNotFoundMessage, reg);
}

bool BindEditRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QLineEdit* edit,
                 QString& errors, const RowStatics& statics) {
    parameter = FindInTree(root, reg);
    if (!parameter) {
        EnableControl(edit, false);
        EmptyStatics(statics);
        AppendNotFound(errors, reg);
        return true;
    }
    if (IsNumeric(*parameter))
        RegisterForUpdate(parameter, edit);
    EnableControl(edit, true);
    SetRowLabel(label, reg, *parameter);
    const bool read = ReadParameter(parameter);
    SetControlText(edit, read ? FormatValueText(parameter) : QString());
    FillStatics(statics, *parameter);
    return read;
}

bool BindListRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QComboBox* dropDown,
                 QString& errors, const RowStatics& statics, TextSource source) {
    parameter = FindInTree(root, reg);
    if (!label || !dropDown)
        return false;
    dropDown->clear();
    if (!parameter) {
        dropDown->setEnabled(false);
        AppendNotFound(errors, reg);
        return true;
    }
    if (IsNumeric(*parameter))
        RegisterForUpdate(parameter, dropDown);
    dropDown->setEnabled(true);
    SetRowLabel(label, reg, *parameter);
    FillChoices(*dropDown, *parameter, reg, source);
    if (!ReadParameter(parameter)) {
        dropDown->setCurrentIndex(-1);
        return false;
    }
    if (!SelectOrAdd(*dropDown, FormatValueText(parameter, source))) {
        dropDown->clear();
        dropDown->setEnabled(false);
        AppendError(errors, kNoValueListMessage, reg);
        return false;
    }
    FillStatics(statics, *parameter);
    return true;
}

bool BindDisplayRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QWidget* value,
                    QString& errors, QWidget* unit) {
    if (!parameter)
        parameter = FindInTree(root, reg);
    if (!parameter) {
        SetControlText(value, QString());
        SetControlText(unit, QString());
        AppendNotFound(errors, reg);
        return true;
    }
    const bool read = ReadParameter(parameter);
    ShowDisplayRow(parameter, label, value, unit);
    if (!read)
        SetControlText(value, QString());
    return read;
}

void ShowDisplayRow(const CParameter* parameter, QWidget* label, QWidget* value, QWidget* unit) {
    if (parameter)
        SetControlText(label, ParameterName(*parameter));
    SetControlText(value, parameter ? FormatValueText(parameter) : QStringLiteral("n/a"));
    SetControlText(unit, parameter ? parameter->GetUnit() : QStringLiteral("n/a"));
}

bool BindRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QLineEdit* edit,
             QComboBox* dropDown, QString& errors, const RowStatics& statics) {
    parameter = FindInTree(root, reg);
    if (!parameter) {
        EnableControl(edit, false);
        AppendNotFound(errors, reg);
        return true;
    }
    if (parameter->IsValueList())
        return BindListRow(root, parameter, reg, label, dropDown, errors, statics);
    return BindEditRow(root, parameter, reg, label, edit, errors, statics);
}

bool WriteRow(CParameter* parameter, QWidget* control, bool force, TextSource source) {
    if (!parameter || !control || (!force && !IsChanged(parameter->GetRegister())))
        return true;
    if (auto* dropDown = qobject_cast<QComboBox*>(control); dropDown && parameter->IsValueList())
        return WriteChoice(*parameter, *dropDown, source);
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        return WriteEdit(*parameter, *edit);
    return true;
}

} // namespace krt550
