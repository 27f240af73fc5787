#include "wizard/platform/dialog.h"

#include "wizard/platform/focus.h"
#include "wizard/platform/modal_frame.h"
#include "wizard/platform/resources.h"

#include <QPushButton>
#include <QScreen>

namespace krt550 {

CDialog::CDialog(int layoutNumber) : CWindow(layoutNumber) {
    Handle(kCancel, ControlEvent::Clicked, [this] { OnCancel(); });
}

CDialog::~CDialog() = default;

int CDialog::DoModal() {
    if (!Create())
        return 0;
    m_ended = false;
    m_frame = std::make_unique<CModalFrame>(*this, [this] { OnCancel(); });
    m_frame->setProperty("layout", GetLayoutNumber());
    if (const auto layout = CResources::Current().GetLayout(GetLayoutNumber()))
        m_frame->setWindowTitle(layout->caption);
    OnInitDialog();
    ClaimDefaultButton();
    FocusFirstValue();
    if (m_position)
        m_frame->OpenAt(*m_position, m_screen);
    const int result = m_frame->Run();
    m_frame.reset();
    return result;
}

void CDialog::OpenAt(const QWidget& control, Place place) {
    m_position = control.mapToGlobal(QPoint(0, place == Place::Below ? control.height() : 0));
    m_screen = control.screen()->availableGeometry();
}

/// Enter is for the default button until a person goes to another one.
void CDialog::FocusFirstValue() {
    if (focusWidget())
        return;
    QWidget* first = FirstFocusable(*this);
    QWidget* button = GetDefaultButton();
    if (qobject_cast<QPushButton*>(first) && button)
        first = button;
    if (first)
        first->setFocus(Qt::TabFocusReason);
}

void CDialog::EndDialog(int result) {
    if (m_ended || !m_frame)
        return;
    m_ended = true;
    OnDestroy();
    KillAllTimers();
    m_frame->End(result);
}

} // namespace krt550
