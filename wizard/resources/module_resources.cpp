#include "wizard/resources/module_resources.h"

#include "wizard/resources/layouts.h"
#include "wizard/resources/menus.h"
#include "wizard/resources/pictures.h"
#include "wizard/resources/string_table.h"

namespace krt550 {

std::optional<DialogLayout> CModuleResources::GetLayout(int number) const {
    return LayoutOfNumber(number);
}

std::optional<QString> CModuleResources::GetString(int number) const {
    return StringTableText(number);
}

QPixmap CModuleResources::GetPicture(int number, QSize size, qreal pixelRatio) const {
    return DrawPicture(number, size, pixelRatio);
}

std::optional<MenuLayout> CModuleResources::GetMenu(int number) const {
    return MenuOfNumber(number);
}

} // namespace krt550
