#include "wizard/resources/menus.h"

namespace krt550 {

std::optional<MenuLayout> MenuOfNumber(int number) {
    // Menu of the preset controls.
    if (number != 10055)
        return std::nullopt;
    return MenuLayout{{32773, QStringLiteral("Change to preset value")},
                      {32774, QStringLiteral("Change all to preset value")},
                      {32775, QStringLiteral("Set value and apply")}};
}

} // namespace krt550
