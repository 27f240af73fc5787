#include "wizard/platform/property_sheet.h"

#include "wizard/platform/dialog_units.h"
#include "wizard/platform/modal_frame.h"
#include "wizard/platform/property_page.h"
#include "wizard/platform/resources.h"

#include <QApplication>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

namespace krt550 {
namespace {

/// Between the frame of a child sheet and its page, in pixels.
constexpr int kPaneMargin = 3;

} // namespace

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
    if (!CreatePage(*page))
        return false;
    m_active = index;
    if (!page->OnSetActive() || m_closing)
        return false;
    if (former)
        HidePage(*former);
    ShowPage(*page);
    if (isVisible())
        page->OnShown();
    else // The first page comes to the front before the window does.
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

void CPropertySheet::HidePage(CPropertyPage& page) {
    // The focus must not fall to whatever comes next on the parent.
    if (const QWidget* focus = QApplication::focusWidget(); m_tabs && focus && page.isAncestorOf(focus))
        m_tabs->setFocus(Qt::OtherFocusReason);
    page.hide();
    layout()->removeWidget(&page);
}

void CPropertySheet::ShowPage(CPropertyPage& page) {
    if (m_tabs) {
        const QSignalBlocker quiet(m_tabs);
        m_tabs->setCurrentIndex(m_active);
        page.move(Pane().topLeft() + QPoint(kPaneMargin, kPaneMargin));
        page.show();
        update();
        return;
    }
    layout()->addWidget(&page);
    page.show();
    page.RestoreDefaultButton();
    if (m_frame)
        m_frame->setProperty("layout", page.GetLayoutNumber());
    // In a wizard the focus goes to the page's first control, as in a dialog that opens.
    if (QWidget* first = page.nextInFocusChain(); first && page.isAncestorOf(first))
        first->setFocus(Qt::OtherFocusReason);
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
    std::ranges::stable_partition(pages, [this](const CPropertyPage* page) { return page == GetActivePage(); });
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
    setFixedSize(Pane().size() + QSize(0, Pane().top()));
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
    for (const CPropertyPage* page : m_pages)
        m_tabs->addTab(page->GetTabText());
    m_tabs->resize(m_tabs->sizeHint().boundedTo({Pane().width(), QWIDGETSIZE_MAX}));
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

/// The framed area below the tabs.
QRect CPropertySheet::Pane() const {
    const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, this);
    const int top = m_tabs->count() > 1 ? m_tabs->sizeHint().height() - overlap : 0;
    return {QPoint(0, top), LargestPage() + QSize(2 * kPaneMargin, 2 * kPaneMargin)};
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

void CPropertySheet::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!m_tabs)
        return;
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    frame.rect = Pane();
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    frame.shape = m_tabs->shape();
    frame.tabBarSize = m_tabs->size();
    frame.tabBarRect = m_tabs->geometry();
    frame.selectedTabRect = m_tabs->tabRect(m_tabs->currentIndex());
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
}

void CPropertySheet::SetTitle(const QString& title) {
    if (m_frame)
        m_frame->setWindowTitle(title);
}

bool CPropertySheet::OnInitDialog() {
    return true;
}

} // namespace krt550
