#include "wizard/wiring/connection_picker.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"

#include <algorithm>

namespace krt550 {
namespace {

bool Contains(const std::vector<int>& entries, int entry) {
    return std::ranges::find(entries, entry) != entries.end();
}

int InputCount(InputKind kind) {
    return kind == InputKind::Digital ? 8 : 4;
}

/// The input other than this one that a selector is tied to; 0 for none.
int HolderOf(const CConnectionTable& table, const CSelectorList::Selector& selector, InputKind kind, int input) {
    for (int other = 1; other <= InputCount(kind); ++other)
        if (other != input && CSelectorList::EntryOf(table, selector, other) != CConnectionTable::kNone)
            return other;
    return 0;
}

bool SetAndWrite(CParameter& parameter, quint16 word) {
    if (parameter.SetValue(word, false))
        return WriteParameter(&parameter);
    ShowLastError(&parameter);
    return false;
}

bool Connect(CParameterGroup* root, const Connection& connection, int input) {
    if (connection.SelectOf(input) == kNoWord)
        return true;
    CParameter* selector = FindParameter(root, connection.selector);
    return selector && SetAndWrite(*selector, connection.SelectOf(input));
}

bool Disconnect(CParameterGroup* root, const Connection& connection, int input) {
    if (connection.disconnect == kNoWord)
        return true;
    CParameter* selector = FindParameter(root, connection.selector);
    if (!ReadParameter(selector))
        return false;
    if (selector->GetActualValue() != connection.SelectOf(input))
        return true;
    return SetAndWrite(*selector, connection.disconnect);
}

} // namespace

CConnectionPicker::CConnectionPicker(const CSelectorList& selectors, int input, const ConnectionChange& pending)
    : m_table(ConnectionsOf(selectors.GetKind())), m_kind(selectors.GetKind()) {
    for (const CSelectorList::Selector& selector : selectors.Selectors()) {
        const int holder = HolderOf(m_table, selector, m_kind, input);
        for (const int entry : m_table.EntriesOf(selector.reg)) {
            if (m_table[entry].SelectOf(input) == kNoWord)
                continue;
            const bool connected = CSelectorList::EntryOf(m_table, selector, input) == entry;
            const bool ticked = (connected && !Contains(pending.disconnect, entry)) || Contains(pending.connect, entry);
            m_items.push_back({entry, selector.reg, selector.read, connected, ticked, holder});
        }
    }
}

QString CConnectionPicker::Name(int item) const {
    return m_table[Item(item).entry].name;
}

bool CConnectionPicker::CanChange(int item) const {
    const PickerItem& at = Item(item);
    const bool stays = at.connected && at.ticked && m_table[at.entry].disconnect == kNoWord;
    return at.known && !stays;
}

QString CConnectionPicker::Hint(int item) const {
    const PickerItem& at = Item(item);
    if (!at.known)
        return QStringLiteral("Parameter %1 could not be read, so it is not known what it is connected to.")
            .arg(at.selector);
    if (!CanChange(item))
        return QStringLiteral("This function always has an input: connect it to another one instead.");
    if (at.holder == 0)
        return {};
    return QStringLiteral("Now connected to %1%2, which loses it when it is chosen here.")
        .arg(m_kind == InputKind::Digital ? QStringLiteral("DI") : QStringLiteral("AI"))
        .arg(at.holder);
}

void CConnectionPicker::Tick(int item, bool ticked) {
    if (!CanChange(item))
        return;
    if (ticked)
        for (PickerItem& other : m_items)
            other.ticked = other.ticked && other.selector != Item(item).selector;
    m_items[static_cast<std::size_t>(item)].ticked = ticked;
}

ConnectionChange CConnectionPicker::GetChange() const {
    ConnectionChange change;
    for (const PickerItem& item : m_items) {
        if (item.ticked && !item.connected)
            change.connect.push_back(item.entry);
        else if (item.connected && !item.ticked)
            change.disconnect.push_back(item.entry);
    }
    return change;
}

bool WriteConnections(CParameterGroup* root, InputKind kind, int input, const ConnectionChange& change) {
    const CConnectionTable& table = ConnectionsOf(kind);
    const auto write = [&](const std::vector<int>& entries, auto one) {
        bool success = true;
        for (const int entry : entries)
            success = one(root, table[entry], input) && success;
        return success;
    };
    if (kind == InputKind::Digital) {
        const bool connected = write(change.connect, Connect);
        return write(change.disconnect, Disconnect) && connected;
    }
    const bool disconnected = write(change.disconnect, Disconnect);
    return write(change.connect, Connect) && disconnected;
}

} // namespace krt550
