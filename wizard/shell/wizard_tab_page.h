#pragma once

#include "wizard/params/row_table.h"
#include "wizard/platform/property_page.h"

namespace krt550 {

class CSheetWizard;
struct UpdatePlan;

/// Base of the tabs inside an assistant page. It has hooks like its page, which calls them through CWizardTabSheet.
class CWizardTabPage : public CPropertyPage {
    Q_OBJECT

public:
    explicit CWizardTabPage(int layoutNumber) : CPropertyPage(layoutNumber) {}

    /// Root of the drive's parameters (borrowed), given before the first load.
    void SetParameterRoot(CParameterGroup* root) { m_root = root; }
    /// The page's sheet (borrowed), given before every load.
    void SetSheet(CSheetWizard* sheet) { m_sheet = sheet; }

    // Hooks that a tab overrides.
    /// The tab comes to the front, or its page becomes active with the tab in front: find, bind and show.
    virtual bool LoadParameters() { return true; }
    /// Writes what the user changed, also while another tab is in front. Writes nothing before the first load.
    virtual bool ApplyParameters() { return false; }
    /// Adds the registers that LoadParameters is about to read.
    virtual void AddReads(std::vector<quint16>&) {}
    /// Re-reads, at every update of the page with the tab in front, what is no row of the update list; false stops the
    /// update. Says itself what failed. For one read; whoever has more adds steps to the plan (AddUpdate).
    virtual bool RefreshValues() { return true; }
    /// Adds what an update of the page with the tab in front refreshes: RefreshValues, then its rows of the update
    /// list.
    virtual void AddUpdate(UpdatePlan& plan);
    virtual void AddToolTip(int controlId, const QString& text);
    virtual void AddToolTip(QWidget* control, const QString& text);

protected:
    bool OnInitDialog() override;
    bool OnSetActive() override;
    /// While a stop waits to be confirmed the link is its alone: another tab would read its rows.
    bool OnKillActive() override;

    CParameterGroup* GetParameterRoot() const { return m_root; }
    CSheetWizard* GetSheet() const { return m_sheet; }
    /// Whether a load has bound the tab's rows.
    bool IsLoaded() const { return m_loaded; }
    void SetLoaded() { m_loaded = true; }

private:
    bool m_loaded = false;
    CParameterGroup* m_root = nullptr;
    CSheetWizard* m_sheet = nullptr;
};

/// A tab that is a table of parameter rows, as CRowPage is for pages.
class CRowTabPage : public CWizardTabPage {
    Q_OBJECT

public:
    /// `rows` outlives the tab.
    explicit CRowTabPage(const PageRows& rows);

    bool LoadParameters() override;
    bool ApplyParameters() override;
    void AddReads(std::vector<quint16>& registers) override { m_rows.AddReads(registers); }

protected:
    virtual bool BindRows(CParameterGroup* root, QString& errors) { return m_rows.Bind(root, errors); }
    /// What becomes of a load's errors, which are not empty; the base shows nothing: such rows are disabled.
    virtual void ReportLoadErrors(const QString&) {}
    virtual bool WriteRows() { return m_rows.Write(); }

    CRowTable& GetRows() { return m_rows; }
    const CRowTable& GetRows() const { return m_rows; }

private:
    CRowTable m_rows;
};

} // namespace krt550
