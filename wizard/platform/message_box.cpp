#include "wizard/platform/message_box.h"

#include "wizard/platform/resources.h"
#include "wizard/platform/wait_cursor.h"

#include <QApplication>
#include <QMessageBox>

namespace krt550 {
namespace {

constexpr int kCaptionString = 1;

int g_count = 0;

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Stop:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QWidget* WindowInFront() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

} // namespace

bool ShowMessageBox(const QString& text, MessageIcon icon, MessageButtons buttons, const QString& caption) {
    ++g_count;
    QMessageBox box(WindowInFront());
    box.setWindowTitle(caption.isEmpty() ? LoadText(kCaptionString) : caption);
    box.setIcon(IconOf(icon));
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setStandardButtons(buttons == MessageButtons::Ok ? QMessageBox::StandardButtons(QMessageBox::Ok)
                                                         : QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Ok);
    if (buttons == MessageButtons::OkCancel)
        box.setEscapeButton(QMessageBox::Cancel);
    const CArrowCursor arrow;
    return box.exec() == QMessageBox::Ok;
}

int MessageBoxCount() {
    return g_count;
}

} // namespace krt550
