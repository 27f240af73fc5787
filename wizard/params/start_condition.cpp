#include "wizard/params/start_condition.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {

bool StartConditionHolds(int step, CParameterGroup* root, MissingRegister missing) {
    CWizardTextStore& store = CWizardTextStore::Instance();
    QList<quint16> registers;
    if (!store.GetStartConditionRegisters(static_cast<quint16>(step), registers))
        return true;
    QList<quint16> values;
    for (const quint16 reg : registers) {
        const bool holds = missing == MissingRegister::Holds;
        CParameter* parameter = holds ? FindInTree(root, reg) : FindParameter(root, reg);
        if (!parameter)
            return holds;
        if (!ReadParameter(parameter))
            return false;
        values.append(parameter->GetValue());
    }
    return store.StartConditionHolds(static_cast<quint16>(step), registers, values);
}

void AddStartConditionReads(int step, std::vector<quint16>& registers) {
    QList<quint16> condition;
    if (CWizardTextStore::Instance().GetStartConditionRegisters(static_cast<quint16>(step), condition))
        registers.insert(registers.end(), condition.begin(), condition.end());
}

} // namespace krt550
