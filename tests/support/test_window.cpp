#include "tests/support/test_window.h"

#include "wizard/platform/window.h"

namespace krt550 {

class CTestWindow::Window : public CWindow {
public:
    Window(CTestWindow& owner, int layout, Maker maker) : CWindow(layout), m_owner(owner), m_maker(std::move(maker)) {}

protected:
    QWidget* CreateControl(const ControlLayout& control) override { return m_maker ? m_maker(control, this) : nullptr; }
    void OnTimer(int) override {
        if (m_owner.onTimer)
            m_owner.onTimer();
    }

private:
    CTestWindow& m_owner;
    Maker m_maker;
};

CTestWindow::CTestWindow(int layout, Maker maker)
    : m_window(std::make_unique<Window>(*this, layout, std::move(maker))), m_widget(m_window.get()) {}

CTestWindow::~CTestWindow() = default;

bool CTestWindow::Create() {
    return m_window->Create();
}

CTestWindow::operator CWindow&() const {
    return *m_window;
}

QWidget* CTestWindow::GetDlgItem(int id) const {
    return m_window->GetDlgItem(id);
}

void CTestWindow::NotifySelected(const QWidget* control) {
    m_window->Notify(control, ControlEvent::Selected);
}

void CTestWindow::NotifyFocusLost(const QWidget* control) {
    m_window->Notify(control, ControlEvent::FocusLost);
}

int CTestWindow::SetTimer(int id, int milliseconds) {
    return m_window->SetTimer(id, milliseconds);
}

void CTestWindow::KillAllTimers() {
    m_window->KillAllTimers();
}

void SetTimerAround(const QWidget* control, int id, int milliseconds) {
    CWindow::OwnerOf(control)->SetTimer(id, milliseconds);
}

} // namespace krt550
