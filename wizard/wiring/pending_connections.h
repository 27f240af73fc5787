#pragma once

#include "wizard/wiring/connection_picker.h"

#include <array>

namespace krt550 {

/// What has been picked for the inputs of one kind and is not applied yet.
class CPendingConnections {
public:
    explicit CPendingConnections(InputKind kind) : m_kind(kind) {}

    const ConnectionChange& Of(int input) const { return m_changes[static_cast<std::size_t>(input - 1)]; }
    bool IsWaiting(int input) const { return !Of(input).IsEmpty(); }
    /// Puts a picker's result in place of the former one. The input that a selector was last picked for gets it: one
    /// that it was picked for before does not take it back when all are written.
    void Pick(int input, const ConnectionChange& change);
    /// Writes the changes of all inputs in their order (WriteConnections). True when all succeeded.
    bool Write(CParameterGroup* root) const;
    void Clear() { m_changes = {}; }

private:
    InputKind m_kind;
    std::array<ConnectionChange, 8> m_changes;
};

} // namespace krt550
