#include "wizard/platform/message_box.h"

#include "wizard/platform/modal_frame.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/platform/window_in_front.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>
#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace krt550 {
namespace {

constexpr int kCaptionString = 1;

int g_count = 0;

struct HeldBox {
    QString text;
    MessageIcon icon;
    QString caption;
};

std::vector<BoxHold::Tell> g_boxHolds; ///< the innermost one last
std::vector<HeldBox> g_held;

int g_onceScopes = 0;
QSet<QString> g_shownOnce;

void Hold(const QString& text, MessageIcon icon, const QString& caption) {
    if (const BoxHold::Tell& tell = g_boxHolds.back())
        tell(text);
    else if (std::ranges::find(g_held, text, &HeldBox::text) == g_held.end())
        g_held.push_back({text, icon, caption});
}

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

/// A text with tab stops brings its own line breaks: its lines are not broken once more.
void KeepLinesWhole(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label || !box.text().contains(QLatin1Char('\t')))
        return;
    constexpr int kTabStop = 80; // of every label's text
    const QFontMetrics metrics = label->fontMetrics();
    label->setMinimumWidth(metrics.size(Qt::TextExpandTabs, box.text(), kTabStop).width() + metrics.averageCharWidth());
}

} // namespace

bool ShowMessageBox(const QString& text, MessageIcon icon, MessageButtons buttons, const QString& caption) {
    if (!g_boxHolds.empty()) {
        if (buttons == MessageButtons::Ok)
            Hold(text, icon, caption);
        return false;
    }
    if (g_onceScopes > 0 && buttons == MessageButtons::Ok) {
        if (g_shownOnce.contains(text))
            return true;
        g_shownOnce.insert(text);
    }
    ++g_count;
    QMessageBox box;
    box.setWindowTitle(caption.isEmpty() ? LoadText(kCaptionString) : caption);
    box.setIcon(IconOf(icon));
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setStandardButtons(buttons == MessageButtons::Ok ? QMessageBox::StandardButtons(QMessageBox::Ok)
                                                         : QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(buttons == MessageButtons::Ok ? QMessageBox::Ok : QMessageBox::Cancel);
    if (buttons == MessageButtons::OkCancel)
        box.setEscapeButton(QMessageBox::Cancel);
    KeepLinesWhole(box);
    StayAboveWindowInFront(box);
    const CArrowCursor arrow;
    const bool accepted = box.exec() == QMessageBox::Ok;
    // The end of the application closes the box and tells nobody else.
    CModalFrame::CancelStoppedFrames();
    return accepted;
}

BoxHold::BoxHold(Tell tell) {
    g_boxHolds.push_back(std::move(tell));
}

BoxHold::~BoxHold() {
    g_boxHolds.pop_back();
    if (g_boxHolds.empty() && !g_held.empty())
        QMetaObject::invokeMethod(qApp, ShowHeldBoxes, Qt::QueuedConnection);
}

BoxOnce::BoxOnce() {
    ++g_onceScopes;
}

BoxOnce::~BoxOnce() {
    if (--g_onceScopes == 0)
        g_shownOnce.clear();
}

bool AreBoxesHeld() {
    return !g_boxHolds.empty();
}

void ShowHeldBoxes() {
    if (!g_boxHolds.empty())
        return;
    const std::vector<HeldBox> held = std::exchange(g_held, {});
    for (const HeldBox& box : held)
        ShowMessageBox(box.text, box.icon, MessageButtons::Ok, box.caption);
}

void ForgetHeldBoxes() {
    g_held.clear();
}

int MessageBoxCount() {
    return g_count;
}

} // namespace krt550
