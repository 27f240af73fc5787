#pragma once

#include <QWidget>

#include <memory>
#include <vector>

class QFrame;
class QTabBar;

namespace krt550 {

class CModalFrame;
enum class CloseWay;
class CPropertyPage;
class CWindow;

/// An ordered list of pages, one of them active. In wizard mode the pages bring their own buttons; otherwise a row of
/// tabs switches them. Shown modally (DoModal) or as a child window (CreateChild).
class CPropertySheet : public QWidget {
    Q_OBJECT

public:
    explicit CPropertySheet(const QString& caption = {}, int firstPage = 0);
    ~CPropertySheet() override;

    /// Appends a page, which is borrowed and outlives the sheet's window.
    void AddPage(CPropertyPage* page);
    void SetWizardMode() { m_wizardMode = true; }
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    CPropertyPage* GetPage(int index) const;
    CPropertyPage* GetActivePage() const { return GetPage(m_active); }
    int GetActiveIndex() const { return m_active; }
    /// Deactivates the page in front, activates the other, then shows it. False when there is no such page, a page
    /// refused, or the sheet is closing.
    bool SetActivePage(int index);

    /// Shows the sheet and returns the result it was ended with.
    int DoModal();
    /// Ends the modal sheet: every page whose window exists runs OnDestroy now; DoModal returns when the handler on the
    /// stack has unwound. A second call does nothing.
    void EndDialog(int result);
    bool IsClosing() const { return m_closing; }
    /// Shows the sheet inside `parent`, its top left corner at that of the control `placeholderId`, moved by `offset`
    /// pixels, and in that control's place in the tab order. It is as large as its largest page needs; the row of tabs
    /// is there when there are several pages.
    void CreateChild(CWindow& parent, int placeholderId, QPoint offset = {});

    /// Window caption of the modal sheet.
    void SetTitle(const QString& title);

    static constexpr int kCancel = 2;

protected:
    virtual bool OnInitDialog();
    /// A person presses the close button, or Escape where no control takes it; ends the sheet unless overridden.
    virtual void OnPersonCloses(CloseWay) { EndDialog(kCancel); }
    /// The sheet ends; its pages' windows still stand.
    virtual void OnClosing() {}

private:
    bool CreatePage(CPropertyPage& page);
    void ShowPage(CPropertyPage& page);
    static void PaintNow(CPropertyPage& page);
    void HidePage(CPropertyPage& page);
    /// Tells the pages that their windows go away, those of child sheets included; the page in front first, because a
    /// run of its own has to end before another page lets go of the drive.
    void DestroyPages();
    void FillTabs();
    QSize LargestPage() const;
    void ThreadTabOrder() const;

    std::vector<CPropertyPage*> m_pages;
    QString m_caption;
    int m_active = -1;
    int m_firstPage;
    bool m_wizardMode = false;
    bool m_closing = false;
    bool m_changingPage = false;
    QTabBar* m_tabs = nullptr;   ///< of a child sheet
    QFrame* m_pane = nullptr;    ///< of a child sheet: around its page, below the tabs
    CWindow* m_parent = nullptr; ///< of a child sheet
    QWidget* m_placeholder = nullptr;
    std::unique_ptr<CModalFrame> m_frame;
};

} // namespace krt550
