#pragma once

#include "wizard/shell/wizard_property_page.h"

namespace krt550 {

/// An assistant page without parameters of its own so far: the common row and its title. It writes nothing, so that
/// chains lead through it.
class CPlainPage : public CWizardPropertyPage {
    Q_OBJECT

public:
    using CWizardPropertyPage::CWizardPropertyPage;

    bool ApplyParameters() override { return true; }
    bool LoadParameters() override;
    bool LeavePage() override { return true; }

protected:
    void OnDestroy() override { OnButtonCancel(); }
};

} // namespace krt550
