#include "wizard/platform/popup_menu.h"

#include "wizard/platform/resources.h"

#include <QMenu>

namespace krt550 {

int TrackPopupMenu(int menuNumber, const QPoint& position, QWidget* owner) {
    const std::optional<MenuLayout> layout = CResources::Current().GetMenu(menuNumber);
    if (!layout)
        return 0;
    QMenu menu(owner);
    for (const auto& [id, text] : *layout)
        menu.addAction(text)->setData(id);
    const QAction* chosen = menu.exec(position);
    return chosen ? chosen->data().toInt() : 0;
}

} // namespace krt550
