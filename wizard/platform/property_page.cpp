#include "wizard/platform/property_page.h"

#include "wizard/platform/resources.h"

#include <QPushButton>

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

// A dialog has one default button; the page in front claims it.
void CPropertyPage::RestoreDefaultButton() {
    constexpr int kNextButton = 95;
    if (auto* next = GetControl<QPushButton>(kNextButton))
        next->setDefault(true);
}

} // namespace krt550
