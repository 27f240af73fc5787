// Queries for the connections of digital and analogue inputs.
#include "wizard/texts/text_fields.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {
namespace {

QString NameOf(const InputConnection& connection) {
    return connection.names.empty() ? QStringLiteral("? (N/A)") : TextOfField(connection.names.front());
}

/// Selecting value of an input counted from 1.
quint16 SelectOf(const InputConnection& connection, int input) {
    const auto at = static_cast<std::size_t>(input - 1);
    return at < connection.select.size() ? connection.select[at] : kNoWord;
}

QList<quint16> SelectorsOf(const InputTable& table) {
    return {table.selectors.begin(), table.selectors.end()};
}

QList<ValueText> ConnectionsOf(const InputTable& table, quint16 selector, int input) {
    QList<ValueText> connections;
    for (const InputConnection& connection : table.connections)
        if (connection.selector == selector && SelectOf(connection, input) != kNoWord)
            connections.append({SelectOf(connection, input), NameOf(connection)});
    return connections;
}

const InputConnection* FindEntry(const InputTable& table, quint16 selector, int input, quint16 value) {
    const auto found = std::ranges::find_if(table.connections, [&](const InputConnection& connection) {
        return connection.selector == selector && SelectOf(connection, input) == value;
    });
    return value == kNoWord || found == table.connections.end() ? nullptr : &*found;
}

bool FindEntryName(const InputTable& table, quint16 selector, int input, quint16 value, QString& name) {
    const InputConnection* entry = FindEntry(table, selector, input, value);
    if (entry)
        name = NameOf(*entry);
    return entry;
}

bool FindByName(const InputTable& table, const QString& name, int input, bool select, quint16& selector,
                quint16& value) {
    const auto found = std::ranges::find_if(table.connections, [&name](const InputConnection& connection) {
        return !connection.names.empty() && FieldIs(connection.names.front(), name);
    });
    if (found == table.connections.end())
        return false;
    const quint16 word = select ? SelectOf(*found, input) : found->disconnect;
    if (word == kNoWord)
        return false;
    selector = found->selector;
    value = word;
    return true;
}

} // namespace

QList<quint16> CWizardTextStore::GetDIRegisters() {
    EnsureWizardTexts();
    return SelectorsOf(m_wizard.digitalInputs);
}

QList<quint16> CWizardTextStore::GetAIRegisters() {
    EnsureWizardTexts();
    return SelectorsOf(m_wizard.analogueInputs);
}

QList<ValueText> CWizardTextStore::GetDIConnections(quint16 selector, int input) {
    EnsureWizardTexts();
    return ConnectionsOf(m_wizard.digitalInputs, selector, input);
}

QList<ValueText> CWizardTextStore::GetAIConnections(quint16 selector, int input) {
    EnsureWizardTexts();
    return ConnectionsOf(m_wizard.analogueInputs, selector, input);
}

bool CWizardTextStore::GetDIEntryName(quint16 selector, int input, quint16 value, QString& name) {
    EnsureWizardTexts();
    return FindEntryName(m_wizard.digitalInputs, selector, input, value, name);
}

bool CWizardTextStore::GetAIEntryName(quint16 selector, int input, quint16 value, QString& name) {
    EnsureWizardTexts();
    return FindEntryName(m_wizard.analogueInputs, selector, input, value, name);
}

bool CWizardTextStore::GetAIEntry(quint16 selector, int input, quint16 value, QString& name, quint16& target) {
    EnsureWizardTexts();
    const InputConnection* entry = FindEntry(m_wizard.analogueInputs, selector, input, value);
    if (!entry)
        return false;
    name = NameOf(*entry);
    target = entry->target;
    return true;
}

bool CWizardTextStore::GetDIEntryByName(const QString& name, int input, bool select, quint16& selector,
                                        quint16& value) {
    EnsureWizardTexts();
    return FindByName(m_wizard.digitalInputs, name, input, select, selector, value);
}

bool CWizardTextStore::GetAIEntryByName(const QString& name, int input, bool select, quint16& selector,
                                        quint16& value) {
    EnsureWizardTexts();
    return FindByName(m_wizard.analogueInputs, name, input, select, selector, value);
}

} // namespace krt550
