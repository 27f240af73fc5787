#pragma once

#include <QtGlobal>

namespace krt550 {

/// Ids of the controls of a parameter row whose layout gives none.
constexpr int LabelId(quint16 reg) {
    return 10000 + reg;
}
constexpr int ValueId(quint16 reg) {
    return 20000 + reg;
}
constexpr int UnitId(quint16 reg) {
    return 30000 + reg;
}
constexpr int MinimumId(quint16 reg) {
    return 40000 + reg;
}
constexpr int MaximumId(quint16 reg) {
    return 50000 + reg;
}

} // namespace krt550
