#pragma once

#include "wizard/params/row_table.h"
#include "wizard/shell/wizard_property_page.h"

namespace krt550 {

/// An assistant page that is a table of parameter rows: loads, applies and refreshes them. What is special about a page
/// goes into overrides.
class CRowPage : public CWizardPropertyPage {
    Q_OBJECT

public:
    /// `rows` outlives the page.
    CRowPage(int layoutNumber, QString helpTopic, std::span<const RowDef> rows);

    bool ApplyParameters() override;
    bool LoadParameters() override;
    bool LeavePage() override;

protected:
    /// Binds what the page shows; false keeps the update timer from starting.
    virtual bool BindRows(CParameterGroup* root, QString& errors);
    /// What becomes of a load's errors: the base has them shown once the page is visible, and nothing refreshed.
    /// Returns whether the page is refreshed cyclically all the same.
    virtual bool ReportLoadErrors(const QString& errors);

    void OnTimer(int id) override;
    void OnDestroy() override { OnButtonCancel(); }

    CRowTable& GetRows() { return m_rows; }
    bool IsUpdating() const { return m_updateTimer != 0; }

private:
    CRowTable m_rows;
    int m_updateTimer = 0;
};

} // namespace krt550
