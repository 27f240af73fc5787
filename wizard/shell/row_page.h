#pragma once

#include "wizard/params/row_table.h"
#include "wizard/shell/wizard_property_page.h"

#include <QPoint>

namespace krt550 {

class CWizardTabPage;
class CWizardTabSheet;
struct UpdatePlan;

/// An assistant page that is a table of parameter rows, and may have tabs with more of them: loads, applies and
/// refreshes them. What is special about a page goes into overrides.
class CRowPage : public CWizardPropertyPage {
    Q_OBJECT

public:
    /// `rows` outlives the page. `source` is where its values get their texts from.
    CRowPage(const PageRows& rows, QString helpTopic, TextSource source = TextSource::WizardFile);
    ~CRowPage() override;

    bool ApplyParameters() override;
    bool LoadParameters() override;
    bool LeavePage() override;
    void AddReads(std::vector<quint16>& registers) override;

protected:
    /// Binds what the page shows; false keeps the update timer from starting.
    virtual bool BindRows(CParameterGroup* root, QString& errors);
    /// What becomes of a load's errors: the base has them shown once the page is visible.
    virtual void ReportLoadErrors(const QString& errors);

    /// Writes what was changed: the rows, then the tabs in their order; each is attempted.
    virtual bool WriteRows();
    /// Whether a load that went so starts the update timer.
    virtual bool StartsUpdate(bool bound, const QString& errors) const { return m_rows.StartsUpdate(bound, errors); }
    /// What the update timer does: begins a pass.
    virtual void UpdateValues();
    /// Adds what a pass refreshes: the rows, what RefreshValues reads, then the tab in front.
    virtual void AddUpdate(UpdatePlan& plan);
    /// Re-reads, at every update, what is no row of the update list; false stops the update. Says itself what failed.
    /// For one read; whoever has more adds steps to the plan.
    virtual bool RefreshValues() { return true; }
    /// Starts the update timer, in place of the one that runs; not on a page without a period.
    void StartUpdate();

    /// Puts tabs onto the page, at its control `placeholderId` moved by `offset` pixels. For the constructor, followed
    /// by an AddTab for each of them.
    CWizardTabSheet& UseTabs(int placeholderId, QPoint offset = {});
    /// Null on a page without tabs.
    CWizardTabSheet* GetTabs() const { return m_tabs.get(); }

    void OnTimer(int id) override;
    void OnDestroy() override { OnButtonCancel(); }

    CRowTable& GetRows() { return m_rows; }
    const CRowTable& GetRows() const { return m_rows; }

private:
    CRowTable m_rows;
    std::unique_ptr<CWizardTabSheet> m_tabs;
    int m_updateTimer = 0;
};

} // namespace krt550
