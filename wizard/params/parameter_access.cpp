#include "wizard/params/parameter_access.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/params/failure_pass.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"

namespace krt550 {
namespace {


} // namespace

CParameterGroup* GetParameterRoot(CHostDrive* drive) {
    CParameterGroup* root = nullptr;
    return drive && drive->GetParameterRoot(&root) ? root : nullptr;
}

CParameter* FindInTree(CParameterGroup* root, quint16 reg) {
    return root->FindChildByRegister(QString::number(reg));
}

CParameter* FindParameter(CParameterGroup* root, quint16 reg) {
    CParameter* parameter = FindInTree(root, reg);
    if (!parameter)
        ShowMessageBox(MessageFor(kNotFoundMessage, reg), MessageIcon::Stop);
    return parameter;
}

bool ReadParameter(CParameter* parameter) {
    if (!parameter)
        return false;
    const bool read = parameter->ReadFromDrive();
    if (read)
        LossMemory::NoteAnswer();
    else
        ShowLastError(parameter);
    return read;
}

bool WriteParameter(CParameter* parameter) {
    if (!parameter)
        return false;
    const bool written = parameter->WriteToDrive(0);
    if (written)
        LossMemory::NoteAnswer();
    else
        ShowLastError(parameter);
    return written;
}

bool SetAndWriteParameter(CParameterGroup* root, quint16 reg, quint16 word) {
    CParameter* parameter = FindParameter(root, reg);
    return parameter && parameter->SetValue(word, false) && WriteParameter(parameter);
}

void ShowLastError(const CParameterSet* parameter) {
    const QString text = parameter ? parameter->GetLastError(0) : QString();
    if (!text.isEmpty() && !FailurePass::Take(*parameter, text))
        ShowMessageBox(text, MessageIcon::Stop);
}

QString MessageFor(int message, quint16 reg) {
    return LoadText(message).replace(QLatin1String("REPLACE"), QString::number(reg));
}

QString RegisterText(const CParameterSet& parameter) {
    const CParameterGroup* parent = parameter.GetParent();
    return parent ? parent->GetIndex() + parameter.GetIndex() : parameter.GetIndex();
}

QString FormatValueText(const CParameter* parameter, TextSource source) {
    if (!parameter)
        return {};
    const quint16 reg = parameter->GetRegister();
    if (!HasValueTexts(source, reg))
        return parameter->GetStringValue();
    QString text;
    if (FindValueText(source, reg, parameter->GetValue(), text))
        return text;
    const QString own = source == TextSource::WizardFile ? parameter->GetStringValue() : QString();
    return own.isEmpty() ? QString::number(parameter->GetValue()) : own;
}

bool ShowParameterValue(CParameter* parameter, QWidget* control) {
    if (!control || !ReadParameter(parameter))
        return false;
    SetControlText(control, FormatValueText(parameter));
    return true;
}

void SetControlTextFromString(QWidget* control, int stringId, const QString& suffix) {
    if (const std::optional<QString> text = CResources::Current().GetString(stringId))
        SetControlText(control, *text + suffix);
}

void SetViewText(QWidget* button, bool isBasicView) {
    constexpr int kAdvanced = 14;
    constexpr int kBasic = 15;
    SetControlTextFromString(button, isBasicView ? kAdvanced : kBasic);
}

} // namespace krt550
