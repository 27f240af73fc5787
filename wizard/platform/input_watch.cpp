#include "wizard/platform/input_watch.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>

#include <memory>
#include <utility>

namespace krt550 {
namespace {

/// Sees every event of the program until the mouse is let go.
class CReleaseWatch : public QObject {
public:
    CReleaseWatch(QObject& context, std::function<void()> act) : QObject(&context), m_act(std::move(act)) {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (!IsLetGo(*event))
            return false;
        qApp->removeEventFilter(this);
        // Behind the event that is about to be delivered.
        QMetaObject::invokeMethod(
            this,
            [this] {
                deleteLater();
                m_act();
            },
            Qt::QueuedConnection);
        return false;
    }

private:
    /// A release may go to another program, or end a drag: then any later input shows it.
    static bool IsLetGo(const QEvent& event) {
        switch (event.type()) {
        case QEvent::MouseButtonRelease:
            return static_cast<const QMouseEvent&>(event).buttons() == Qt::NoButton;
        case QEvent::MouseMove:
        case QEvent::KeyPress:
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::FocusIn:
            return QGuiApplication::mouseButtons() == Qt::NoButton;
        default:
            return false;
        }
    }

    std::function<void()> m_act;
};

} // namespace

void AfterMouseRelease(QObject& context, std::function<void()> act) {
    new CReleaseWatch(context, std::move(act));
}

void OnOtherChoice(QComboBox& dropDown, std::function<void()> tell) {
    // `activated` comes with every choice, straight after `currentIndexChanged` when it is another one. The program's
    // selections bring only the latter, which is out of date when the event loop is back.
    const auto moved = std::make_shared<bool>(false);
    QObject::connect(&dropDown, &QComboBox::currentIndexChanged, &dropDown, [&dropDown, moved] {
        *moved = true;
        QMetaObject::invokeMethod(
            &dropDown, [moved] { *moved = false; }, Qt::QueuedConnection);
    });
    QObject::connect(&dropDown, &QComboBox::activated, &dropDown, [moved, tell = std::move(tell)] {
        if (std::exchange(*moved, false))
            tell();
    });
}

} // namespace krt550
