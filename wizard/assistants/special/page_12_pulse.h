#pragma once

#include "wizard/shell/row_page.h"
#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

/// A tab that says at once which of its parameters the drive lacks.
class CTabPage12Pulse : public CRowTabPage {
public:
    using CRowTabPage::CRowTabPage;

protected:
    void ReportLoadErrors(const QString& errors) override;
};

/// What two converters that feed one motor with twelve pulses have to know of each other: two tabs.
class CPage12Pulse : public CRowPage {
public:
    CPage12Pulse();

private:
    CTabPage12Pulse m_common;
    CTabPage12Pulse m_protections;
};

} // namespace krt550
