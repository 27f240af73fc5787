// Queries for texts by number: tool tips, names, value texts, index lists.
#include "hostlib/text_files/text_fields.h"
#include "wizard/platform/resources.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kOtherString = 228;

QString Other() {
    return CResources::Current().GetString(kOtherString).value_or(QStringLiteral("Other"));
}

bool FindValueText(const CValueTextTable& table, quint16 reg, quint16 value, QString& text) {
    const std::string_view found = table.Find(reg, value);
    text = found.empty() ? QStringLiteral("N/A") : TextOfField(found);
    return !found.empty();
}

bool CollectValueTexts(const CValueTextTable& table, quint16 reg, QList<ValueText>& texts) {
    for (const quint16 value : table.ValuesOf(reg))
        texts.append({value, TextOfField(table.Find(reg, value))});
    return !texts.isEmpty();
}

} // namespace

QString CWizardTextStore::TextOf(const CTextTable& table, quint32 key) {
    return EnsureWizardTexts() ? TextOfField(table.Find(key)) : QString();
}

IndexList CWizardTextStore::ListOf(const CTextTable& table) {
    IndexList list;
    if (!EnsureWizardTexts())
        return list;
    std::vector<quint32> keys = table.Keys();
    std::ranges::sort(keys);
    for (const quint32 key : keys) {
        list.keys.append(key);
        list.texts.append(TextOfField(table.Find(key)));
    }
    return list;
}

QString CWizardTextStore::GetToolTip(quint16 reg) {
    return TextOf(m_wizard.toolTips, reg);
}

QString CWizardTextStore::GetParameterName(quint16 reg) {
    return TextOf(m_wizard.parameterNames, reg);
}

QString CWizardTextStore::GetMacroDescription(quint16 macro) {
    return TextOf(m_wizard.macroDescriptions, macro);
}

bool CWizardTextStore::HasValueTexts(const QString& registerText) {
    return EnsureWizardTexts() && m_wizard.valueTexts.HasValues(RegisterOfText(registerText));
}

bool CWizardTextStore::GetValueText(const QString& registerText, quint16 value, QString& text) {
    EnsureWizardTexts();
    return FindValueText(m_wizard.valueTexts, RegisterOfText(registerText), value, text);
}

bool CWizardTextStore::GetValueOfText(const QString& registerText, const QString& text, quint16& value) {
    EnsureWizardTexts();
    const quint16 reg = RegisterOfText(registerText);
    const std::vector<quint16> values = m_wizard.valueTexts.ValuesOf(reg);
    const auto found = std::ranges::find_if(
        values, [&](quint16 candidate) { return FieldIs(m_wizard.valueTexts.Find(reg, candidate), text); });
    if (found == values.end())
        return false;
    value = *found;
    return true;
}

bool CWizardTextStore::GetAllValueTexts(const QString& registerText, QList<ValueText>& texts) {
    texts.clear();
    return EnsureWizardTexts() && CollectValueTexts(m_wizard.valueTexts, RegisterOfText(registerText), texts);
}

QString CWizardTextStore::GetAOName(quint16 value) {
    const QString name = TextOf(m_wizard.analogueOutputs, value);
    return name.isEmpty() ? QStringLiteral("%1 (%2)").arg(Other()).arg(value) : name;
}

QString CWizardTextStore::GetDOName(quint16 index, quint16 bit) {
    const QString name = TextOf(m_wizard.digitalOutputs, (quint32{index} << 16) | bit);
    return name.isEmpty() ? QStringLiteral("%1 (%2,%3)").arg(Other()).arg(index).arg(bit) : name;
}

IndexList CWizardTextStore::GetAOList() {
    return ListOf(m_wizard.analogueOutputs);
}

IndexList CWizardTextStore::GetDOList() {
    return ListOf(m_wizard.digitalOutputs);
}

IndexList CWizardTextStore::GetDataSetReceiveList() {
    return ListOf(m_wizard.dataSetReceive);
}

IndexList CWizardTextStore::GetDataSetTransmitList() {
    return ListOf(m_wizard.dataSetTransmit);
}

IndexList CWizardTextStore::GetMailBoxReceiveList() {
    return ListOf(m_wizard.mailBoxReceive);
}

IndexList CWizardTextStore::GetMailBoxTransmitList() {
    return ListOf(m_wizard.mailBoxTransmit);
}

QString CWizardTextStore::GetConfigurableName() {
    return EnsureConfigurableTexts() ? TextOfField(m_configurable.name) : QString();
}

bool CWizardTextStore::GetConfigurableRow(int number, ConfigurableRow& row) {
    if (!EnsureConfigurableTexts())
        return false;
    const auto found = m_configurable.rows.constFind(number);
    if (found == m_configurable.rows.constEnd())
        return false;
    const auto& [reg, preset, caption, toolTip, helpText] = *found;
    row = {WordOfField(reg), TextOfField(preset), TextOfField(caption), TextOfField(toolTip), TextOfField(helpText)};
    return true;
}

bool CWizardTextStore::HasConfigurableValueTexts(const QString& registerText) {
    return EnsureConfigurableTexts() && m_configurable.valueTexts.HasValues(RegisterOfText(registerText));
}

bool CWizardTextStore::GetConfigurableValueText(const QString& registerText, quint16 value, QString& text) {
    EnsureConfigurableTexts();
    return FindValueText(m_configurable.valueTexts, RegisterOfText(registerText), value, text);
}

bool CWizardTextStore::GetAllConfigurableValueTexts(const QString& registerText, QList<ValueText>& texts) {
    texts.clear();
    return EnsureConfigurableTexts() &&
           CollectValueTexts(m_configurable.valueTexts, RegisterOfText(registerText), texts);
}

} // namespace krt550
