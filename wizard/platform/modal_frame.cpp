#include "wizard/platform/modal_frame.h"

#include "wizard/platform/fitting_scroll_area.h"
#include "wizard/platform/window_in_front.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace krt550 {
namespace {

std::vector<CModalFrame*> g_running;

} // namespace

CModalFrame::CModalFrame(QWidget& content, std::function<void()> onCancel)
    : m_content(content), m_scroll(new CFittingScrollArea(content, this)), m_onCancel(std::move(onCancel)) {
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_scroll);
}

CModalFrame::~CModalFrame() {
    m_content.hide();
    m_scroll->takeWidget();
    m_content.setParent(nullptr);
}

int CModalFrame::Run() {
    m_running = true;
    g_running.push_back(this);
    if (!m_ended) {
        StayAboveWindowInFront(*this);
        m_scroll->SetRoom(RoomOnScreen(*this));
        show();
        m_loop.exec(QEventLoop::DialogExec);
    }
    if (!m_ended)
        m_onCancel();
    std::erase(g_running, this);
    return m_result;
}

void CModalFrame::End(int result) {
    if (m_ended)
        return;
    m_ended = true;
    m_result = result;
    hide();
    m_loop.quit();
    // Whoever is still on the stack and drains the queue takes the request back from the event dispatcher, which then
    // waits for the next event: there is one.
    startTimer(1);
}

void CModalFrame::reject() {
    if (m_onPersonCloses)
        m_onPersonCloses(CloseWay::Escape);
    else
        m_onCancel();
}

void CModalFrame::OpenAt(QPoint position, const QRect& screen) {
    adjustSize();
    const QSize whole = size() + FrameOf(*this);
    const QPoint last = screen.bottomRight() - QPoint(whole.width() - 1, whole.height() - 1);
    move(std::max(std::min(position.x(), last.x()), screen.left()),
         std::max(std::min(position.y(), last.y()), screen.top()));
}

void CModalFrame::closeEvent(QCloseEvent* event) {
    if (!m_ended && event->spontaneous() && m_onPersonCloses)
        m_onPersonCloses(CloseWay::Button);
    else if (!m_ended)
        m_onCancel();
    event->setAccepted(m_ended);
}

void CModalFrame::CancelStoppedFrames() {
    const std::vector<CModalFrame*> frames = g_running;
    for (CModalFrame* frame : frames)
        if (!frame->m_ended && !frame->m_loop.isRunning())
            frame->m_onCancel();
}

} // namespace krt550
