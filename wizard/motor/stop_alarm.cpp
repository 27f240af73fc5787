#include "wizard/motor/stop_alarm.h"

#include "wizard/platform/resources.h"

#include <QLabel>
#include <QMessageBox>

namespace krt550 {
namespace {

constexpr int kCaption = 1;
constexpr int kRunningDownText = 2001;
constexpr int kNotConfirmedText = 2002;

void WriteLarge(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label)
        return;
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    label->setFont(font);
}

} // namespace

CStopAlarm::~CStopAlarm() {
    delete m_box;
}

void CStopAlarm::Show(StopAlarm alarm) {
    if (int(alarm) <= m_shown)
        return;
    m_shown = int(alarm);
    if (!m_box)
        m_box = new QMessageBox;
    m_box->setAttribute(Qt::WA_QuitOnClose, false);
    const bool bad = alarm == StopAlarm::NotConfirmed;
    m_box->setWindowTitle(LoadText(kCaption));
    m_box->setIcon(bad ? QMessageBox::Critical : QMessageBox::Warning);
    m_box->setTextFormat(Qt::PlainText);
    m_box->setText(LoadText(bad ? kNotConfirmedText : kRunningDownText));
    m_box->setStandardButtons(QMessageBox::Ok);
    m_box->setWindowModality(Qt::ApplicationModal);
    if (bad)
        WriteLarge(*m_box);
    m_box->show();
}

} // namespace krt550
