#include "wizard/platform/property_page.h"

#include "wizard/platform/resources.h"

namespace krt550 {

CPropertyPage::CPropertyPage(int layoutNumber) : CWindow(layoutNumber) {
    hide();
}

QString CPropertyPage::GetTabText() const {
    if (!m_tabText.isEmpty())
        return m_tabText;
    const auto layout = CResources::Current().GetLayout(GetLayoutNumber());
    return layout ? layout->caption : QString();
}

} // namespace krt550
