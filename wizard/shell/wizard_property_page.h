#pragma once

#include "wizard/platform/property_page.h"

#include <QPixmap>

#include <array>
#include <vector>

namespace krt550 {

class CHostDrive;
class CSheetWizard;
class CStripBitmapButton;

/// Next-page index of the last page of a chain.
inline constexpr int kLastPage = 111;
/// Step number, next-page or previous-page index of a page that no chain has linked.
inline constexpr int kNoPage = 32;

/// Base of the start page and of every assistant page: the buttons that all pages share, the digits of the seven steps,
/// and the fixed order of the page's hooks.
class CWizardPropertyPage : public CPropertyPage {
    Q_OBJECT

public:
    CWizardPropertyPage(int layoutNumber, QString helpTopic);
    ~CWizardPropertyPage() override;

    // Chain record, written by the sheet.
    void SetSheet(CSheetWizard* sheet) { m_sheet = sheet; }
    void SetTitle(int stringId);
    void SetStepNumber(int step) { m_step = step; }
    void SetNextPage(int page) { m_nextPage = page; }
    void SetPreviousPage(int page) { m_previousPage = page; }

    int GetWayOut() const override;
    int GetStepNumber() const { return m_step; }
    int GetNextPage() const { return m_nextPage; }
    int GetPreviousPage() const { return m_previousPage; }
    bool IsLastPage() const { return m_nextPage == kLastPage; }
    const QString& GetTitle() const { return m_title; }

    /// Adds to the message that is shown once, after the page's next activation.
    void AppendPendingMessage(const QString& text) { m_pendingMessage += text; }
    const QString& GetPendingMessage() const { return m_pendingMessage; }

    /// Cancel, pressed as a button or as Escape: while a stop waits to be confirmed the page is left after that.
    void CancelByPerson();

    // Hooks that a page overrides.
    /// Writes what the user changed; false keeps the user on the page. The page itself says why.
    virtual bool ApplyParameters() { return false; }
    /// Cancel was pressed, or the window goes away.
    virtual bool CancelPage() { return true; }
    /// The page becomes active: find, bind and show.
    virtual bool LoadParameters() { return true; }
    /// Adds the registers that LoadParameters is about to read, as far as they are known before: a link may fetch them
    /// in one request.
    virtual void AddReads(std::vector<quint16>&) {}
    /// Shows what the load collected.
    virtual bool ShowPendingMessages();
    /// The page is left: stop what runs on it.
    virtual bool LeavePage() { return false; }

protected:
    bool OnInitDialog() override;
    bool OnSetActive() override;
    void OnShown() override;
    bool OnKillActive() override;
    QWidget* CreateControl(const ControlLayout& control) override;
    void keyPressEvent(QKeyEvent* event) override;

    virtual void OnButtonNext();
    virtual void OnButtonBack();
    virtual void OnButtonApply();
    /// Cancel routine of all pages: leaves the page or ends the wizard, then makes the drive safe.
    virtual void OnButtonCancel();
    void OnButtonReset();

    CSheetWizard* GetSheet() const { return m_sheet; }
    /// The host's drive, or null.
    CHostDrive* GetDrive() const;

    void AddToolTip(int controlId, const QString& text);
    /// Loads the reset button's bitmap once. Every page calls it at the start of its LoadParameters.
    void InitResetButton();
    /// Shows the states of the steps, on pages that have the digits.
    void UpdateStepIcons();
    /// "Finish" on the last page of a chain, "Next >" otherwise.
    void UpdateNextCaption();

private:
    /// Sets what a common button does; nothing while a stop waits to be confirmed.
    void HandleButton(int id, void (CWizardPropertyPage::*press)());
    // The hooks, with what fails in them told once.
    bool Apply();
    void Load();

    CSheetWizard* m_sheet = nullptr;
    int m_step = kNoPage;
    int m_nextPage = kNoPage;
    int m_previousPage = kNoPage;
    QString m_title;
    QString m_pendingMessage;
    QString m_helpTopic;
    CStripBitmapButton* m_resetButton = nullptr;
    bool m_cancelling = false;
};

} // namespace krt550
