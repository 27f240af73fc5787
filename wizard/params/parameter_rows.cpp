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
namespace {

constexpr int kNotFoundMessage = 5;
constexpr int kNoValueListMessage = 229;
constexpr int kNumericTypes[] = {2, 3, 4, 5, 8, 10};
const QLatin1String kExcludedEntry("#excl#");

bool IsNumeric(const CParameter& parameter) {
    return std::ranges::find(kNumericTypes, parameter.GetType()) != std::end(kNumericTypes);
}

void AppendError(QString& errors, int message, const QString& registerText) {
    errors += QLatin1String("- ") + MessageFor(message, registerText) + QLatin1Char('\n');
}

QString NameOf(const CParameter& parameter) {
    const QString name = CWizardTextStore::Instance().GetParameterName(parameter.GetRegister());
    return name.isEmpty() ? parameter.GetName() : name;
}

void SetRowLabel(QWidget* label, const QString& registerText, const CParameter& parameter) {
    SetControlText(label, registerText + QLatin1Char(' ') + NameOf(parameter));
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

void FillChoices(QComboBox& dropDown, const CParameter& parameter, const QString& registerText, TextSource source) {
    if (HasValueTexts(source, registerText)) {
        dropDown.addItems(AllValueTexts(source, registerText));
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
bool SetFromChoice(CParameter& parameter, const QString& text) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    const QString registerText = QString::number(parameter.GetRegister());
    if (!store.HasValueTexts(registerText))
        return parameter.SetValue(text);
    quint16 value = 0;
    return store.GetValueOfText(registerText, text, value) ? parameter.SetValue(value, false)
                                                           : parameter.SetStringValue(text);
}

bool Reported(const CParameter& parameter, bool success) {
    if (!success)
        ShowLastError(&parameter);
    return success;
}

void ShowValueText(QWidget* control, const QString& text) {
    if (auto* dropDown = qobject_cast<QComboBox*>(control))
        SelectChoice(dropDown, text);
    else
        SetControlText(control, text);
}

bool WriteChoice(CParameter& parameter, QComboBox& dropDown) {
    if (!Reported(parameter, SetFromChoice(parameter, dropDown.currentText())) || !WriteParameter(&parameter))
        return false;
    const bool read = ReadParameter(&parameter);
    SelectChoice(&dropDown, FormatValueText(&parameter));
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

bool BindEditRow(CParameterGroup* root, CParameter*& parameter, const QString& registerText, QWidget* label,
                 QLineEdit* edit, QString& errors, const RowStatics& statics) {
    parameter = root->FindChildByRegister(registerText);
    if (!parameter) {
        EnableControl(edit, false);
        EmptyStatics(statics);
        AppendError(errors, kNotFoundMessage, registerText);
        return true;
    }
    if (IsNumeric(*parameter))
        RegisterForUpdate(parameter, edit);
    EnableControl(edit, true);
    SetRowLabel(label, registerText, *parameter);
    const bool read = ReadParameter(parameter);
    SetControlText(edit, read ? FormatValueText(parameter) : QString());
    UnmarkChanged(parameter->GetRegister());
    FillStatics(statics, *parameter);
    return read;
}

bool BindListRow(CParameterGroup* root, CParameter*& parameter, const QString& registerText, QWidget* label,
                 QComboBox* dropDown, QString& errors, const RowStatics& statics, TextSource source) {
    parameter = root->FindChildByRegister(registerText);
    if (!label || !dropDown)
        return false;
    dropDown->clear();
    if (!parameter) {
        dropDown->setEnabled(false);
        AppendError(errors, kNotFoundMessage, registerText);
        return true;
    }
    if (IsNumeric(*parameter))
        RegisterForUpdate(parameter, dropDown);
    dropDown->setEnabled(true);
    SetRowLabel(label, registerText, *parameter);
    FillChoices(*dropDown, *parameter, registerText, source);
    if (!ReadParameter(parameter)) {
        dropDown->setCurrentIndex(-1);
        return false;
    }
    if (!SelectOrAdd(*dropDown, FormatValueText(parameter, registerText, source))) {
        dropDown->clear();
        dropDown->setEnabled(false);
        AppendError(errors, kNoValueListMessage, registerText);
        return false;
    }
    FillStatics(statics, *parameter);
    return true;
}

bool BindDisplayRow(CParameterGroup* root, CParameter*& parameter, const QString& registerText, QWidget* label,
                    QWidget* value, QString& errors, QWidget* unit) {
    if (!parameter)
        parameter = root->FindChildByRegister(registerText);
    if (!parameter) {
        SetControlText(value, QString());
        SetControlText(unit, QString());
        AppendError(errors, kNotFoundMessage, registerText);
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
        SetControlText(label, NameOf(*parameter));
    SetControlText(value, parameter ? FormatValueText(parameter) : QStringLiteral("n/a"));
    SetControlText(unit, parameter ? parameter->GetUnit() : QStringLiteral("n/a"));
}

bool BindRow(CParameterGroup* root, CParameter*& parameter, const QString& registerText, QWidget* label,
             QLineEdit* edit, QComboBox* dropDown, QString& errors, const RowStatics& statics) {
    parameter = root->FindChildByRegister(registerText);
    if (!parameter) {
        EnableControl(edit, false);
        AppendError(errors, kNotFoundMessage, registerText);
        return true;
    }
    if (parameter->IsValueList())
        return BindListRow(root, parameter, registerText, label, dropDown, errors, statics);
    return BindEditRow(root, parameter, registerText, label, edit, errors, statics);
}

bool RereadRow(CParameter* parameter, QWidget* control) {
    if (!control || !ReadParameter(parameter))
        return false;
    ShowValueText(control, FormatValueText(parameter));
    UnmarkChanged(parameter->GetRegister());
    return true;
}

void UnbindRow(QWidget* control, quint16 reg) {
    ShowValueText(control, QString());
    EnableControl(control, false);
    UnmarkChanged(reg);
}

bool WriteRow(CParameter* parameter, QWidget* control, bool force) {
    if (!parameter || !control || (!force && !IsChanged(parameter->GetRegister())))
        return true;
    if (auto* dropDown = qobject_cast<QComboBox*>(control); dropDown && parameter->IsValueList())
        return WriteChoice(*parameter, *dropDown);
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        return WriteEdit(*parameter, *edit);
    return true;
}

} // namespace krt550
