#include "wizard/platform/property_sheet.h"

#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/dialog_units.h"
#include "wizard/platform/focus.h"
#include "wizard/platform/modal_frame.h"
#include "wizard/platform/property_page.h"
#include "wizard/platform/resources.h"

#include <QCoreApplication>
#include <QFrame>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

namespace krt550 {
namespace {

/// Frame of a child sheet and the room inside it, around the page, in pixels.
constexpr int kPaneMargin = 3;

} // namespace

CPropertySheet::CPropertySheet(const QString& caption, int firstPage) : m_caption(caption), m_firstPage(firstPage) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
}

CPropertySheet::~CPropertySheet() {
    // The pages are borrowed: without this Qt would delete those that are still there as children.
    const QWidget* parent = m_pane ? m_pane : static_cast<QWidget*>(this);
    const auto pages = parent->findChildren<CPropertyPage*>(Qt::FindDirectChildrenOnly);
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
    if (!CreatePage(*page))
        return false;
    m_active = index;
    if (!page->OnSetActive() || m_closing)
        return false;
    const bool focusInside = former && former->isAncestorOf(window()->focusWidget());
    if (former)
        HidePage(*former);
    ShowPage(*page);
    // In a wizard the focus goes to the page's first control, as in a dialog that opens. Whoever walks along the tabs
    // goes on with that.
    if (!m_tabs || focusInside)
        FocusFirst(*page);
    if (isVisible()) {
        PaintNow(*page);
        page->OnShown();
    } else // The first page comes to the front before the window does.
        QMetaObject::invokeMethod(
            page, [page] { page->OnShown(); }, Qt::QueuedConnection);
    return true;
}

bool CPropertySheet::CreatePage(CPropertyPage& page) {
    if (page.IsCreated())
        return true;
    if (!page.Create())
        return false;
    if (m_parent)
        ThreadTabOrder();
    page.OnInitDialog();
    return true;
}

/// What was read is seen before any timer or box comes.
void CPropertySheet::PaintNow(CPropertyPage& page) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    page.repaint();
}

void CPropertySheet::HidePage(CPropertyPage& page) {
    // The focus must not fall to whatever comes next on the parent.
    if (m_tabs && page.isAncestorOf(window()->focusWidget()))
        m_tabs->setFocus(Qt::OtherFocusReason);
    page.hide();
    page.parentWidget()->layout()->removeWidget(&page);
}

void CPropertySheet::ShowPage(CPropertyPage& page) {
    if (m_tabs) {
        const QSignalBlocker quiet(m_tabs);
        m_tabs->setCurrentIndex(m_active);
    }
    static_cast<QVBoxLayout*>(page.parentWidget()->layout())->addWidget(&page, 0, Qt::AlignTop | Qt::AlignLeft);
    page.show();
    // A dialog has one default button; the page in front claims it.
    page.ClaimDefaultButton();
    if (m_frame)
        m_frame->setProperty("layout", page.GetLayoutNumber());
}

int CPropertySheet::DoModal() {
    m_closing = false;
    m_frame = std::make_unique<CModalFrame>(*this, [this] { EndDialog(kCancel); });
    m_frame->SetPersonCloses([this](CloseWay way) { OnPersonCloses(way); });
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
    OnClosing();
    DestroyPages();
    m_frame->End(result);
}

void CPropertySheet::DestroyPages() {
    m_closing = true;
    std::vector<CPropertyPage*> pages = m_pages;
    std::stable_partition(pages.begin(), pages.end(),
                          [this](const CPropertyPage* page) { return page == GetActivePage(); });
    for (CPropertyPage* page : pages) {
        if (!page->IsCreated())
            continue;
        page->KillAllTimers();
        page->OnDestroy();
        const auto sheets = page->findChildren<CPropertySheet*>(Qt::FindDirectChildrenOnly);
        for (CPropertySheet* sheet : sheets)
            sheet->DestroyPages();
    }
}

void CPropertySheet::CreateChild(CWindow& parent, int placeholderId, QPoint offset) {
    m_parent = &parent;
    m_placeholder = parent.GetDlgItem(placeholderId);
    setParent(&parent);
    FillTabs();
    OnInitDialog();
    SetActivePage(m_firstPage);
    move((m_placeholder ? m_placeholder->pos() : QPoint()) + offset);
    show();
}

void CPropertySheet::FillTabs() {
    m_tabs = new QTabBar(this);
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setAutoHide(true);
    m_pane = new QFrame(this);
    m_pane->setFrameShape(QFrame::StyledPanel);
    auto* inside = new QVBoxLayout(m_pane);
    const int margin = std::max(0, kPaneMargin - m_pane->frameWidth());
    inside->setContentsMargins(margin, margin, margin, margin);
    for (CPropertyPage* page : m_pages) {
        m_tabs->addTab(page->GetTabText());
        page->setParent(m_pane);
    }
    const int around = 2 * (margin + m_pane->frameWidth());
    m_pane->setFixedSize(LargestPage() + QSize(around, around));
    layout()->addWidget(m_pane);
    // The tab in front hides the frame below it.
    m_tabs->resize(m_tabs->sizeHint().boundedTo({m_pane->width(), QWIDGETSIZE_MAX}));
    m_tabs->raise();
    if (m_tabs->count() > 1)
        layout()->setContentsMargins(0, m_tabs->height() - style()->pixelMetric(QStyle::PM_TabBarBaseOverlap), 0, 0);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (!SetActivePage(index)) {
            const QSignalBlocker quiet(m_tabs);
            m_tabs->setCurrentIndex(m_active);
        }
    });
}

/// Also of the pages that have no window yet.
QSize CPropertySheet::LargestPage() const {
    QSize size;
    const CDialogUnits units(font());
    for (const CPropertyPage* page : m_pages)
        if (const auto layout = CResources::Current().GetLayout(page->GetLayoutNumber()))
            size = size.expandedTo(units.ToPixels(layout->width, layout->height));
    return size;
}

void CPropertySheet::ThreadTabOrder() const {
    QWidgetList order;
    for (QWidget* control : m_parent->GetControls()) {
        if (control != m_placeholder) {
            order.append(control);
            continue;
        }
        order.append(m_tabs);
        for (const CPropertyPage* page : m_pages)
            order.append(page->GetControls());
    }
    CWindow::ThreadTabOrder(order);
}

void CPropertySheet::SetTitle(const QString& title) {
    if (m_frame)
        m_frame->setWindowTitle(title);
}

bool CPropertySheet::OnInitDialog() {
    return true;
}

} // namespace krt550
