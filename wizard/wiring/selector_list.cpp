#include "wizard/wiring/selector_list.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/read_once.h"
#include "wizard/platform/resources.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kMultipleConnections = 375;

} // namespace

const CConnectionTable& ConnectionsOf(InputKind kind) {
    CWizardTextStore& texts = CWizardTextStore::Instance();
    return kind == InputKind::Digital ? texts.GetDIConnections() : texts.GetAIConnections();
}

CSelectorList::CSelectorList(InputKind kind, CParameterGroup* root, CReadOnce& reads) : m_kind(kind), m_root(root) {
    for (const quint16 reg : ConnectionsOf(kind).Selectors())
        if (CParameter* parameter = FindParameter(root, reg))
            m_selectors.push_back({parameter, reg, reads.Read(parameter)});
}

int CSelectorList::EntryOf(const CConnectionTable& table, const Selector& selector, int input) {
    return selector.read ? table.Find(selector.reg, input, selector.parameter->GetActualValue())
                         : CConnectionTable::kNone;
}

InputUse CSelectorList::UseOf(int input) const {
    const CConnectionTable& table = ConnectionsOf(m_kind);
    if (table.IsEmpty())
        return {};
    int hit = CConnectionTable::kNone;
    for (const Selector& selector : m_selectors) {
        const int entry = EntryOf(table, selector, input);
        if (entry == CConnectionTable::kNone)
            continue;
        if (hit != CConnectionTable::kNone)
            return {LoadText(kMultipleConnections), nullptr, true};
        hit = entry;
    }
    if (hit == CConnectionTable::kNone) {
        const bool unknown = !std::ranges::all_of(m_selectors, &Selector::read);
        return {unknown ? QStringLiteral("?") : QStringLiteral("-")};
    }
    const Connection& connection = table[hit];
    return {connection.name, connection.target == kNoWord ? nullptr : FindInTree(m_root, connection.target)};
}

QString DOConnectionText(quint16 indexWord, quint16 bitWord) {
    return CWizardTextStore::Instance().GetDOName(PlainIndex(indexWord), bitWord);
}

QString AOConnectionText(quint16 indexWord) {
    return CWizardTextStore::Instance().GetAOName(indexWord);
}

} // namespace krt550
