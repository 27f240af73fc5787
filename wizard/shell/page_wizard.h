#pragma once

#include "wizard/shell/wizard_property_page.h"

#include <vector>

class QAbstractButton;

namespace krt550 {

/// Page 0, "Assistant menu": starts basic commissioning, or a chain of the pages that are ticked.
class CPageWizard : public CWizardPropertyPage {
    Q_OBJECT

public:
    CPageWizard();

    bool ApplyParameters() override { return true; }
    bool LoadParameters() override;
    bool LeavePage() override { return true; }

protected:
    bool OnInitDialog() override;
    void OnButtonNext() override;

private:
    void OnButtonStart();
    void OnButtonAdvanced();
    void UpdateNextButton();
    void ShowAssistantBoxes(bool show);
    std::vector<quint16> GetTickedPages() const;

    bool m_basicView = true;
};

} // namespace krt550
