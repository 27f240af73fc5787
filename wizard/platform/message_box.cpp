#include "wizard/platform/message_box.h"

#include "wizard/platform/resources.h"
#include "wizard/platform/wait_cursor.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>

#include <algorithm>

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

/// A text with tab stops brings its own line breaks: its lines are not broken once more.
void KeepLinesWhole(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label || !box.text().contains(QLatin1Char('\t')))
        return;
    constexpr int kTabStop = 80; // of every label's text
    int widest = 0;
    const QStringList lines = box.text().split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        int width = 0;
        const QStringList parts = line.split(QLatin1Char('\t'));
        for (const QString& part : parts) {
            if (&part != &parts.first())
                width = (width / kTabStop + 1) * kTabStop;
            width += label->fontMetrics().horizontalAdvance(part);
        }
        widest = std::max(widest, width);
    }
    label->setMinimumWidth(widest + label->fontMetrics().averageCharWidth());
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
    KeepLinesWhole(box);
    const CArrowCursor arrow;
    return box.exec() == QMessageBox::Ok;
}

int MessageBoxCount() {
    return g_count;
}

} // namespace krt550
