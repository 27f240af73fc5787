#include "wizard/params/changed_registers.h"

#include <QSet>

namespace krt550 {
namespace {

QSet<quint16> g_changed;
bool g_updating = false;

} // namespace

void MarkChanged(quint16 reg) {
    if (!g_updating)
        g_changed.insert(reg);
}

bool IsChanged(quint16 reg) {
    return g_changed.contains(reg);
}

bool AnyChanged() {
    return !g_changed.isEmpty();
}

void UnmarkChanged(quint16 reg) {
    g_changed.remove(reg);
}

void ClearChanged() {
    g_changed.clear();
}

UpdatingScope::UpdatingScope() {
    g_updating = true;
}

UpdatingScope::~UpdatingScope() {
    g_updating = false;
}

} // namespace krt550
