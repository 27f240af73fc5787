#include "wizard/shell/page_wizard.h"

#include "wizard/params/changed_registers.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/sheet_wizard.h"

#include <QCheckBox>

namespace krt550 {
namespace {

constexpr int kIdStart = 158;
constexpr int kIdBasicHeading = 162;
constexpr int kIdView = 170;
constexpr int kBasicHeading = 15;
constexpr int kCloseText = 35;

/// Check boxes in the order of the page indexes 1 to 16.
constexpr int kBoxIds[] = {160, 164, 165, 166, 167, 168, 169, 171, 173, 174, 175, 176, 177, 178, 179, 180};
constexpr quint16 kFirstAssistant = 8;

constexpr quint16 PageOfBox(std::size_t box) {
    return static_cast<quint16>(box + 1);
}

} // namespace

CPageWizard::CPageWizard() : CWizardPropertyPage(107, QStringLiteral("default.htm")) {
    Handle(kIdStart, ControlEvent::Clicked, [this] { OnButtonStart(); });
    Handle(kIdView, ControlEvent::Clicked, [this] { OnButtonAdvanced(); });
    for (const int box : kBoxIds)
        Handle(box, ControlEvent::Clicked, [this] { UpdateNextButton(); });
}

bool CPageWizard::OnInitDialog() {
    const bool result = CWizardPropertyPage::OnInitDialog();
    SetControlTextFromString(GetDlgItem(kIdBasicHeading), kBasicHeading, QStringLiteral(":"));
    SetControlTextFromString(GetDlgItem(kIdCancelPage), kCloseText);
    for (const int button : {kIdApply, kIdBack, kIdNext})
        EnableControl(GetDlgItem(button), false);
    ShowAssistantBoxes(false);
    return result;
}

bool CPageWizard::LoadParameters() {
    // What was typed on a page that was left without applying it is gone.
    ClearChanged();
    UpdateStepIcons();
    UpdateNextButton();
    InitResetButton();
    UpdateNextCaption();
    EnableControl(GetDlgItem(kIdNext), false);
    UpdateNextButton();
    return true;
}

void CPageWizard::OnButtonNext() {
    const std::vector<quint16> pages = GetTickedPages();
    if (!pages.empty() && GetSheet())
        GetSheet()->SetAssistantChain(pages);
    CWizardPropertyPage::OnButtonNext();
}

void CPageWizard::OnButtonStart() {
    if (GetSheet())
        GetSheet()->StartBasicCommissioning();
    CWizardPropertyPage::OnButtonNext();
}

void CPageWizard::OnButtonAdvanced() {
    SetViewText(GetDlgItem(kIdView), !m_basicView);
    ShowAssistantBoxes(m_basicView);
    m_basicView = !m_basicView;
    UpdateNextButton();
}

void CPageWizard::UpdateNextButton() {
    EnableControl(GetDlgItem(kIdNext), !GetTickedPages().empty());
}

void CPageWizard::ShowAssistantBoxes(bool show) {
    for (std::size_t box = 0; box < std::size(kBoxIds); ++box)
        if (PageOfBox(box) >= kFirstAssistant)
            ShowControl(GetDlgItem(kBoxIds[box]), show);
}

std::vector<quint16> CPageWizard::GetTickedPages() const {
    std::vector<quint16> pages;
    for (std::size_t box = 0; box < std::size(kBoxIds); ++box) {
        const auto* checkBox = GetControl<QCheckBox>(kBoxIds[box]);
        const bool offered = !m_basicView || PageOfBox(box) < kFirstAssistant;
        if (offered && checkBox && checkBox->isChecked())
            pages.push_back(PageOfBox(box));
    }
    return pages;
}

} // namespace krt550
