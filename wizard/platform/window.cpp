#include "wizard/platform/window.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/control_factory.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/dialog_units.h"
#include "wizard/platform/input_watch.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/slider.h"
#include "wizard/platform/timer_hold.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

namespace krt550 {

CWindow::CWindow(int layoutNumber, QWidget* parent) : QWidget(parent), m_layoutNumber(layoutNumber) {}

CWindow::~CWindow() = default;

bool CWindow::Create() {
    if (m_created)
        return true;
    const std::optional<DialogLayout> layout = CResources::Current().GetLayout(m_layoutNumber);
    if (!layout)
        return false;
    m_created = true;
    setProperty("layout", m_layoutNumber);
    Place(*layout);
    return true;
}

void CWindow::Place(const DialogLayout& layout) {
    const CDialogUnits units(font());
    setFixedSize(units.ToPixels(layout.width, layout.height));
    for (const ControlLayout& item : layout.controls) {
        QWidget* control = CreateControl(item);
        if (!control)
            control = MakeControl(item, this);
        DressControl(*control, item);
        control->setGeometry(units.ToPixels(item.rect));
        m_controls.insert(item.id, control);
        m_order.append(control);
        if (item.kind == ControlKind::DefaultButton)
            m_defaultButton = item.id;
        Connect(control);
    }
    ThreadTabOrder(m_order);
    for (const ControlLayout& item : layout.controls) {
        if (auto* label = GetControl<QLabel>(item.id); label && item.buddy)
            NameControl(*label, GetDlgItem(item.buddy));
    }
}

void CWindow::Connect(QWidget* control) {
    if (auto* edit = qobject_cast<QLineEdit*>(control)) {
        connect(edit, &QLineEdit::textChanged, this, [this, edit] { Notify(edit, ControlEvent::Changed); });
        edit->installEventFilter(this);
    } else if (auto* dropDown = qobject_cast<QComboBox*>(control)) {
        OnOtherChoice(*dropDown, [this, dropDown] { Notify(dropDown, ControlEvent::Selected); });
        dropDown->setFocusPolicy(Qt::StrongFocus); // not by the wheel, which would choose another entry then
        dropDown->installEventFilter(this);
    } else if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        // A screen reader ticks without a click.
        connect(button, &QAbstractButton::toggled, this, [this, button] { Notify(button, ControlEvent::Clicked); });
        connect(button, &QAbstractButton::clicked, this, [this, button] {
            if (!button->isCheckable())
                Notify(button, ControlEvent::Clicked);
        });
    } else if (auto* slider = qobject_cast<CSlider*>(control)) {
        connect(slider, &CSlider::released, this, [this, slider] { Notify(slider, ControlEvent::Released); });
    } else if (auto* list = qobject_cast<QListWidget*>(control)) {
        connect(list, &QListWidget::itemChanged, this, [this, list] { Notify(list, ControlEvent::Selected); });
    } else if (auto* text = qobject_cast<QPlainTextEdit*>(control)) {
        connect(text, &QPlainTextEdit::textChanged, this, [this, text] { Notify(text, ControlEvent::Changed); });
    }
}

int CWindow::GetDlgCtrlID(const QWidget* control) const {
    const int id = control ? control->objectName().toInt() : 0;
    return id != 0 && GetDlgItem(id) == control ? id : 0;
}

void CWindow::Handle(int id, ControlEvent event, Handler handler) {
    m_handlers[{id, event}] = std::move(handler);
}

void CWindow::Notify(const QWidget* control, ControlEvent event) {
    const auto found = m_handlers.find({GetDlgCtrlID(control), event});
    if (found == m_handlers.end())
        return;
    // A copy: the handler may replace itself while it runs.
    const Handler handler = found->second;
    handler();
}

int CWindow::SetTimer(int id, int milliseconds) {
    const int handle = ++m_lastTimer;
    auto clock = std::make_unique<CClockTimer>([this, id, handle] {
        if (!TimerHold::Keep(*this, handle))
            OnTimer(id);
    });
    clock->Start(milliseconds);
    m_timers[handle] = {id, milliseconds, std::move(clock)};
    return handle;
}

bool CWindow::KillTimer(int handle) {
    return m_timers.erase(handle) != 0;
}

void CWindow::RestartTimer(int handle) {
    if (const auto timer = m_timers.find(handle); timer != m_timers.end())
        timer->second.clock->Start(timer->second.period);
}

void CWindow::ServeTimer(int handle) {
    const auto timer = m_timers.find(handle);
    if (timer == m_timers.end())
        return;
    const QPointer<CWindow> self(this);
    OnTimer(timer->second.id);
    if (self)
        RestartTimer(handle);
}

void CWindow::KillAllTimers() {
    m_timers.clear();
}

QPushButton* CWindow::GetDefaultButton() const {
    return GetControl<QPushButton>(m_defaultButton);
}

void CWindow::ClaimDefaultButton() {
    if (QPushButton* button = GetDefaultButton()) {
        // The dialog only looks when the state changes.
        button->setDefault(false);
        button->setDefault(true);
    }
}

void CWindow::ThreadTabOrder(const QWidgetList& widgets) {
    QWidget* former = nullptr;
    for (QWidget* widget : widgets) {
        if (widget->focusPolicy() == Qt::NoFocus)
            continue;
        if (former)
            setTabOrder(former, widget);
        former = widget;
    }
}

CWindow* CWindow::OwnerOf(const QWidget* control) {
    return control ? qobject_cast<CWindow*>(control->parentWidget()) : nullptr;
}

QWidget* CWindow::CreateControl(const ControlLayout&) {
    return nullptr;
}

void CWindow::OnTimer(int) {}

bool CWindow::eventFilter(QObject* watched, QEvent* event) {
    auto* control = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::FocusOut && control) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // A menu, or another window coming to the front, only borrows the focus.
        const bool borrowed =
            reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
        if (!borrowed)
            FocusLeft(*control);
    } else if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) && !control->hasFocus()) {
        // Scrolling across a page must not change a drive setting by accident.
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CWindow::FocusLeft(QWidget& control) {
    if (QGuiApplication::mouseButtons() == Qt::NoButton) {
        if (control.isVisible())
            Notify(&control, ControlEvent::FocusLost);
        return;
    }
    // The focus left by a mouse press that another control is still to see through. A message box now would swallow
    // the click. After it a box is only wanted when the click itself has brought none, the page is still there, and
    // nobody goes on typing.
    AfterMouseRelease(*this, [this, left = QPointer(&control), boxesBefore = MessageBoxCount()] {
        if (left && left->isVisible() && !left->hasFocus() && MessageBoxCount() == boxesBefore)
            Notify(left, ControlEvent::FocusLost);
    });
}

} // namespace krt550
