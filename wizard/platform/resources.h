#pragma once

#include "wizard/platform/dialog_layout.h"

#include <QPixmap>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace krt550 {

/// Commands of a popup menu: id and text, in order.
using MenuLayout = std::vector<std::pair<int, QString>>;

/// What a set of resources can answer, by number. Nothing (or a null pixmap) when the set has no such resource.
class CResources {
public:
    virtual ~CResources() = default;
    virtual std::optional<DialogLayout> GetLayout(int number) const = 0;
    virtual std::optional<QString> GetString(int number) const = 0;
    /// `size` in device-independent pixels, an empty one means the picture's own; drawn for `pixelRatio`.
    virtual QPixmap GetPicture(int number, QSize size, qreal pixelRatio) const = 0;
    virtual std::optional<MenuLayout> GetMenu(int number) const = 0;

    /// The current set; an empty one when none is current.
    static const CResources& Current();
};

/// Text of a string number from the current resources; empty when there is none.
QString LoadText(int number);

/// Makes a set of resources the current one for the scope's lifetime and puts the former one back.
class ResourceScope {
public:
    explicit ResourceScope(const CResources& resources);
    ~ResourceScope();
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;

private:
    const CResources* m_former;
};

} // namespace krt550
