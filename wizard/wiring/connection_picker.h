#pragma once

#include "wizard/wiring/selector_list.h"

namespace krt550 {

/// What a person has changed about the connections of one input and not yet applied: entries of its table.
struct ConnectionChange {
    std::vector<int> connect;
    std::vector<int> disconnect;
    bool IsEmpty() const { return connect.empty() && disconnect.empty(); }
};

/// The functions that one input can be tied to, each with a tick. A selector ties one input to one function, so a tick
/// takes those of the selector's other functions away.
class CConnectionPicker {
public:
    /// Ticks stand as they will after `pending` has been applied.
    CConnectionPicker(const CSelectorList& selectors, int input, const ConnectionChange& pending);

    int Count() const { return static_cast<int>(m_items.size()); }
    QString Name(int item) const;
    bool IsTicked(int item) const { return Item(item).ticked; }
    /// False where a tick could do nothing: the selector was not read, or there is no way to take the function off.
    bool CanChange(int item) const;
    /// Why it cannot be changed, or what else changes with it; mostly empty.
    QString Hint(int item) const;
    void Tick(int item, bool ticked);
    /// What differs from the drive. What it had ticked and still has is no change.
    ConnectionChange GetChange() const;

private:
    struct PickerItem {
        int entry;
        quint16 selector;
        bool known;
        bool connected; ///< in the drive
        bool ticked;
        int holder; ///< other input that the selector is tied to, 0 for none
    };
    const PickerItem& Item(int item) const { return m_items[static_cast<std::size_t>(item)]; }

    const CConnectionTable& m_table;
    InputKind m_kind;
    std::vector<PickerItem> m_items;
};

/// Writes what was changed about the connections of one input: analogue inputs are taken off first, digital ones
/// tied first. A function is only taken off while its selector (read again) still is at this input and this function:
/// what it was tied to meanwhile stays. Each failure is shown, and the next one is tried. True when all succeeded.
bool WriteConnections(CParameterGroup* root, InputKind kind, int input, const ConnectionChange& change);

} // namespace krt550
