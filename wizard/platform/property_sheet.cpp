#include "wizard/platform/property_sheet.h"

#include "wizard/platform/modal_frame.h"
#include "wizard/platform/property_page.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

namespace krt550 {

CPropertySheet::CPropertySheet(const QString& caption, int firstPage) : m_caption(caption), m_firstPage(firstPage) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
}

CPropertySheet::~CPropertySheet() {
    // The pages are borrowed: without this Qt would delete those that are still there as children.
    const auto pages = findChildren<CPropertyPage*>(Qt::FindDirectChildrenOnly);
    for (CPropertyPage* page : pages)
        page->setParent(nullptr);
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    page->setParent(this);
    page->hide();
    m_pages.push_back(page);
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
    return index >= 0 && index < GetPageCount() ? m_pages[static_cast<std::size_t>(index)] : nullptr;
}

bool CPropertySheet::SetActivePage(int index) {
    CPropertyPage* page = GetPage(index);
    CPropertyPage* former = GetActivePage();
    if (!page || m_closing || m_changingPage)
        return false;
    if (page == former)
        return true;
    const QScopedValueRollback<bool> changing(m_changingPage, true);
    if (former && !former->OnKillActive())
        return false;
    if (!page->IsCreated()) {
        if (!page->Create())
            return false;
        page->OnInitDialog();
    }
    m_active = index;
    if (!page->OnSetActive() || m_closing)
        return false;
    if (former) {
        former->hide();
        layout()->removeWidget(former);
    }
    ShowPage(*page);
    if (isVisible())
        page->OnShown();
    else // The first page comes to the front before the window does.
        QMetaObject::invokeMethod(
            page, [page] { page->OnShown(); }, Qt::QueuedConnection);
    return true;
}

void CPropertySheet::ShowPage(CPropertyPage& page) {
    layout()->addWidget(&page);
    page.show();
    page.RestoreDefaultButton();
    if (m_frame)
        m_frame->setProperty("layout", page.GetLayoutNumber());
    if (m_tabs) {
        const QSignalBlocker quiet(m_tabs);
        m_tabs->setCurrentIndex(m_active);
        return;
    }
    // In a wizard the focus goes to the page's first control, as in a dialog that opens.
    if (QWidget* first = page.nextInFocusChain(); first && page.isAncestorOf(first))
        first->setFocus(Qt::OtherFocusReason);
}

int CPropertySheet::DoModal() {
    m_closing = false;
    m_frame = std::make_unique<CModalFrame>(*this, [this] { EndDialog(kCancel); });
    m_frame->setWindowTitle(m_caption);
    OnInitDialog();
    SetActivePage(m_firstPage);
    const int result = m_frame->Run();
    m_frame.reset();
    m_active = -1;
    return result;
}

void CPropertySheet::EndDialog(int result) {
    if (m_closing || !m_frame)
        return;
    m_closing = true;
    for (CPropertyPage* page : m_pages) {
        if (page->IsCreated()) {
            page->KillAllTimers();
            page->OnDestroy();
        }
    }
    m_frame->End(result);
}

void CPropertySheet::CreateChild(QWidget* parent) {
    setParent(parent);
    FillTabs();
    OnInitDialog();
    SetActivePage(m_firstPage);
    adjustSize();
    show();
}

void CPropertySheet::FillTabs() {
    m_tabs = new QTabBar(this);
    m_tabs->setExpanding(false);
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, m_tabs, 0, Qt::AlignLeft);
    for (const CPropertyPage* page : m_pages)
        m_tabs->addTab(page->GetTabText());
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (!SetActivePage(index)) {
            const QSignalBlocker quiet(m_tabs);
            m_tabs->setCurrentIndex(m_active);
        }
    });
}

void CPropertySheet::SetTitle(const QString& title) {
    if (m_frame)
        m_frame->setWindowTitle(title);
}

bool CPropertySheet::OnInitDialog() {
    return true;
}

} // namespace krt550
