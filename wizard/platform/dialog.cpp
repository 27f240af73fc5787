#include "wizard/platform/dialog.h"

#include "wizard/platform/modal_frame.h"
#include "wizard/platform/resources.h"

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
    const int result = m_frame->Run();
    m_frame.reset();
    return result;
}

void CDialog::EndDialog(int result) {
    if (m_ended || !m_frame)
        return;
    m_ended = true;
    KillAllTimers();
    OnDestroy();
    m_frame->End(result);
}

} // namespace krt550
