// Queries for numbers: periods, conditions, tuning tables, fieldbus defaults.
#include "hostlib/text_files/text_fields.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {
namespace {

template <class Record> bool Give(const std::optional<Record>& record, Record& out) {
    if (record)
        out = *record;
    return record.has_value();
}

} // namespace

bool CWizardTextStore::GetMacroDependentRegisters(quint16 macro, QStringList& registerTexts) {
    registerTexts.clear();
    EnsureWizardTexts();
    const auto found = m_wizard.macroRegisters.constFind(macro);
    if (found == m_wizard.macroRegisters.constEnd())
        return false;
    for (const std::string_view text : *found)
        registerTexts.append(TextOfField(text));
    return true;
}

bool CWizardTextStore::GetUpdatePeriod(int key, int& period) {
    EnsureWizardTexts();
    const auto found = m_wizard.updatePeriods.constFind(key);
    const bool known = found != m_wizard.updatePeriods.constEnd();
    period = known ? *found : 0;
    return known;
}

bool CWizardTextStore::StartConditionHolds(quint16 step, const QList<quint16>& registers,
                                           const QList<quint16>& values) {
    EnsureWizardTexts();
    if (registers.size() != values.size())
        return false;
    for (qsizetype at = 0; at < registers.size(); ++at) {
        const StartCondition* condition = m_wizard.startConditions.Find(step, registers[at]);
        if (condition && std::ranges::find(condition->allowed, values[at]) == condition->allowed.end())
            return false;
    }
    return true;
}

bool CWizardTextStore::GetStartConditionRegisters(quint16 step, QList<quint16>& registers) {
    EnsureWizardTexts();
    registers = m_wizard.startConditions.RegistersOf(step);
    return !registers.isEmpty();
}

bool CWizardTextStore::GetSpeedResponse(SpeedResponse& response) {
    return EnsureWizardTexts() && Give(m_wizard.speedResponse, response);
}

bool CWizardTextStore::GetSliderValues(quint16 index, QList<SliderValue>& values) {
    values.clear();
    EnsureWizardTexts();
    std::ranges::copy_if(m_wizard.sliderValues, std::back_inserter(values),
                         [index](const SliderValue& value) { return value.index == index; });
    return !values.isEmpty();
}

const std::vector<SliderValue>& CWizardTextStore::GetAllSliderValues() {
    EnsureWizardTexts();
    return m_wizard.sliderValues;
}

bool CWizardTextStore::GetFieldbusDefaults(const QString& moduleType, QList<RegisterValue>& defaults) {
    defaults.clear();
    EnsureWizardTexts();
    bool known = false;
    for (const FieldbusType& type : m_wizard.fieldbusTypes) {
        if (!FieldIs(type.moduleType, moduleType))
            continue;
        known = true;
        for (std::size_t fieldbus = 0; fieldbus < kFieldbusKeys.size(); ++fieldbus)
            if (kFieldbusKeys[fieldbus] == type.fieldbusKey)
                std::ranges::copy(m_wizard.fieldbusDefaults[fieldbus], std::back_inserter(defaults));
    }
    return known;
}

bool CWizardTextStore::GetGainAdjustUp(GainAdjustment& adjustment) {
    return EnsureWizardTexts() && Give(m_wizard.gainUp, adjustment);
}

bool CWizardTextStore::GetGainAdjustDown(GainAdjustment& adjustment) {
    return EnsureWizardTexts() && Give(m_wizard.gainDown, adjustment);
}

} // namespace krt550
