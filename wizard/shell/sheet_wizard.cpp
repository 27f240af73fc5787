#include "wizard/shell/sheet_wizard.h"

#include "wizard/motor/make_safe.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/modal_frame.h"
#include "wizard/platform/resources.h"
#include "wizard/shell/step_states.h"
#include "wizard/shell/wizard_property_page.h"

namespace krt550 {
namespace {

/// Title strings in page-index order.
constexpr int kTitles[kPageCount] = {2, 13, 37, 38, 39, 40, 41, 42, 274, 264, 271, 278, 282, 286, 292, 298, 303};

constexpr int kUnappliedText = 2005;

PageFactory& Factory() {
    static PageFactory factory;
    return factory;
}

} // namespace

void SetPageFactory(PageFactory factory) {
    Factory() = std::move(factory);
}

CSheetWizard::CSheetWizard(int captionString, QWidget* parent, int firstPage)
    : CPropertySheet(LoadText(captionString), firstPage) {
    setParent(parent);
}

CSheetWizard::~CSheetWizard() = default;

void CSheetWizard::SetDriveObject(CHostDrive* drive) {
    Q_ASSERT(Factory());
    m_drive = drive;
    for (int index = 0; index < kPageCount; ++index) {
        auto& page = m_pages[static_cast<std::size_t>(index)];
        page = Factory()(index);
        page->SetTitle(kTitles[index]);
        AddPage(page.get());
        page->SetSheet(this);
    }
    SetWizardMode();
}

void CSheetWizard::StartBasicCommissioning() {
    GetWizardPage(0)->SetPreviousPage(kNoPage);
    GetWizardPage(0)->SetStepNumber(0);
    for (int i = 0; i < kStepCount; ++i) {
        GetWizardPage(i)->SetNextPage(i + 1);
        GetWizardPage(i + 1)->SetPreviousPage(i);
        GetWizardPage(i + 1)->SetStepNumber(i + 1);
        SetStepState(i + 1, StepState::Pending);
    }
    GetWizardPage(kStepCount)->SetNextPage(kLastPage);
}

void CSheetWizard::SetAssistantChain(std::span<const quint16> pages) {
    for (int step = 1; step <= kStepCount; ++step)
        SetStepState(step, StepState::NotChosen);
    CWizardPropertyPage* current = GetWizardPage(0);
    int previous = 0;
    for (const quint16 index : pages) {
        CWizardPropertyPage* page = index >= 1 ? GetWizardPage(index) : nullptr;
        if (!page)
            continue;
        current->SetNextPage(index);
        page->SetPreviousPage(previous);
        page->SetStepNumber(index);
        SetStepState(index, StepState::Pending);
        current = page;
        previous = index;
        current->SetNextPage(kLastPage);
    }
}

void CSheetWizard::EndWizard(int code) {
    if (IsClosing())
        return;
    if (code == kWizardClosed)
        EndDialog(kWizardClosed);
    else
        SetActivePage(0);
}

void CSheetWizard::OnPersonCloses(CloseWay way) {
    if (IsMotorUnderControl() && way == CloseWay::Escape) {
        static_cast<CWizardPropertyPage*>(GetActivePage())->CancelByPerson();
        return;
    }
    const bool loses = AnyChanged() && !IsMotorUnderControl();
    if (!loses || ShowMessageBox(LoadText(kUnappliedText), MessageIcon::Exclamation, MessageButtons::OkCancel))
        EndDialog(kCancel);
}

void CSheetWizard::OnClosing() {
    ClearUpdateList();
    EndMotorSession();
}

CWizardPropertyPage* CSheetWizard::GetWizardPage(int index) const {
    return index >= 0 && index < kPageCount ? m_pages[static_cast<std::size_t>(index)].get() : nullptr;
}

CParameterGroup* GetPageParameterRoot(const CSheetWizard* sheet) {
    return sheet ? GetParameterRoot(sheet->GetDriveObject()) : nullptr;
}

} // namespace krt550
