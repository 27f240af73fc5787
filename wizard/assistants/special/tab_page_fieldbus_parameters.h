#pragma once

#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

/// The parameters of the fieldbus adapter: as many as the mounted type has. A parameter that the type does not use has
/// a name that begins with "fieldbus"; its row is hidden like that of a parameter that the drive lacks.
class CTabPageFieldbusParameters : public CRowTabPage {
public:
    CTabPageFieldbusParameters();

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;

private:
    /// Puts what suits the mounted type into the rows; Apply writes it.
    void EnterDefaults();
};

} // namespace krt550
