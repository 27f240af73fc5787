#pragma once

#include "wizard/platform/property_sheet.h"

#include <QPoint>

namespace krt550 {

class CParameterGroup;
class CSheetWizard;
class CWindow;
class CWizardTabPage;
struct UpdatePlan;

/// The tabs inside an assistant page: what all pages with tabs do with them.
class CWizardTabSheet : public CPropertySheet {
    Q_OBJECT

public:
    /// The tabs appear on `page` at its control `placeholderId`, moved by `offset` pixels.
    CWizardTabSheet(CWindow& page, int placeholderId, QPoint offset);

    /// Appends a tab (borrowed). An empty label stands for the caption of the tab's layout.
    void AddTab(CWizardTabPage& tab, const QString& label = {});

    /// At the first load the sheet's window is made, which brings the first tab to the front and so loads it; later
    /// the tab in front is loaded again. `root` is not null.
    void Load(CSheetWizard* sheet, CParameterGroup* root);
    /// Every tab writes what the user changed on it, in tab order and each attempted; true when all succeeded.
    bool Apply();
    /// Adds the registers that Load is about to read: those of the tab in front.
    void AddReads(std::vector<quint16>& registers) const;
    /// Adds what an update refreshes on the tab in front.
    void AddUpdate(UpdatePlan& plan) const;

    /// Null before the first load.
    CWizardTabPage* GetFrontTab() const;

private:
    std::vector<CWizardTabPage*> m_tabPages;
    CWindow& m_page;
    int m_placeholderId;
    QPoint m_offset;
};

} // namespace krt550
