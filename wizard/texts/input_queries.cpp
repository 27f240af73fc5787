// Queries for the connections of digital and analogue inputs.
#include "hostlib/text_files/text_fields.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

/// Nearly all runs never ask, so the table is made when somebody does.
const CConnectionTable& TableOf(std::optional<CConnectionTable>& table, const std::vector<InputConnection>& read) {
    if (table)
        return *table;
    table.emplace();
    for (const InputConnection& entry : read) {
        const QString name = entry.names.empty() ? QStringLiteral("? (N/A)") : TextOfField(entry.names.front());
        table->Add({entry.selector, entry.target, entry.select, entry.disconnect, name});
    }
    return *table;
}

const CConnectionTable& NoTable() {
    static const CConnectionTable none;
    return none;
}

} // namespace

const CConnectionTable& CWizardTextStore::GetDIConnections() {
    return EnsureWizardTexts() ? TableOf(m_digitalInputs, m_wizard.digitalInputs) : NoTable();
}

const CConnectionTable& CWizardTextStore::GetAIConnections() {
    return EnsureWizardTexts() ? TableOf(m_analogueInputs, m_wizard.analogueInputs) : NoTable();
}

} // namespace krt550
