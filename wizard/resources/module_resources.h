#pragma once

#include "wizard/platform/resources.h"

namespace krt550 {

/// The module's own resources.
class CModuleResources : public CResources {
public:
    std::optional<DialogLayout> GetLayout(int number) const override;
    std::optional<QString> GetString(int number) const override;
    QPixmap GetPicture(int number, QSize size, qreal pixelRatio) const override;
    std::optional<MenuLayout> GetMenu(int number) const override;
};

} // namespace krt550
