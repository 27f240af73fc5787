#include "wizard/platform/resources.h"

namespace krt550 {
namespace {

class CNoResources : public CResources {
public:
    std::optional<DialogLayout> GetLayout(int) const override { return std::nullopt; }
    std::optional<QString> GetString(int) const override { return std::nullopt; }
    QPixmap GetPicture(int, QSize, qreal) const override { return {}; }
    std::optional<MenuLayout> GetMenu(int) const override { return std::nullopt; }
};

const CResources* g_current = nullptr;

} // namespace

const CResources& CResources::Current() {
    static const CNoResources none;
    return g_current ? *g_current : none;
}

QString LoadText(int number) {
    return CResources::Current().GetString(number).value_or(QString());
}

ResourceScope::ResourceScope(const CResources& resources) : m_former(g_current) {
    g_current = &resources;
}

ResourceScope::~ResourceScope() {
    g_current = m_former;
}

} // namespace krt550
