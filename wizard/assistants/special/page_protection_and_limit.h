#pragma once

#include "wizard/shell/row_page.h"
#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

/// Levels at which the drive trips, its reactions, and its limits: two tabs.
class CPageProtectionAndLimit : public CRowPage {
public:
    CPageProtectionAndLimit();

protected:
    /// The limits first: no protection is set up against a limit that has still to come.
    bool WriteRows() override;

private:
    CRowTabPage m_protections;
    CRowTabPage m_limits;
};

} // namespace krt550
