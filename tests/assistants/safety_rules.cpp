#include "tests/assistants/safety_rules.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/motor/make_safe.h"
#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

const QString kAlarms[] = {"The motor is running down.", "THE DRIVE DOES NOT CONFIRM THE STOP."};

bool IsAlarm(const QString& text) {
    return std::ranges::any_of(kAlarms, [&](const QString& alarm) { return text.startsWith(alarm); });
}

bool MakesMoreAlive(const QString& call) {
    return call == "take local control" || call == "close contactor" || call == "start motor" ||
           (call.startsWith("write 9906=") && call != "write 9906=0") ||
           (call.startsWith("write 4507=") && call != "write 4507=0");
}

} // namespace

bool TellsOfLoss(const QString& text) {
    static const QRegularExpression loss("simulated failure|did not answer|no answer within|no connection");
    return text.contains(loss);
}

void SafetyRules::JudgeCall(const QString& call, bool inServiceMode) {
    if (m_endAsked && MakesMoreAlive(call))
        violations.append(call + " after the end was asked for");
    if (call == "start motor" && !m_confirmed)
        violations.append("started without a confirmation");
    if (call == "start motor") // whoever has agreed to turn the motor by hand may start it again
        m_confirmed = m_confirmed && !inServiceMode;
    if (call == "release local control" && m_turning)
        violations.append("local control given back over a turning motor");
    const bool confirms = call == "stop motor" || call == "open contactor" || call.startsWith("refresh");
    if (IsMotorStopping() && m_turning && m_toldToStop && !confirms)
        violations.append(call + " while the stop waits to be confirmed");
}

void SafetyRules::SeeBox(const QString& text) {
    if (m_turning && !IsAlarm(text))
        violations.append("a box over a turning motor: " + text);
    if (TellsOfLoss(text) && ++m_lossesTold > std::max(m_lossesHad, 1))
        violations.append("told again: " + text);
}

void SafetyRules::NoteOutcome(const QString& outcome) {
    const bool lost = TellsOfLoss(outcome);
    m_lossesHad += lost && !m_lost ? 1 : 0;
    m_lost = lost;
}

BoxClerk::BoxClerk(SafetyRules& rules) : m_rules(rules) {
    qApp->installEventFilter(this);
}

bool BoxClerk::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    const bool isAct = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress ||
                       event->type() == QEvent::Close;
    if (isAct && widget && !qobject_cast<const QMessageBox*>(widget->window()))
        m_rules.NoteAct();
    const auto* notice = qobject_cast<QLabel*>(watched);
    if (notice && event->type() == QEvent::Paint && notice->objectName().toInt() == kIdNotice &&
        !notice->text().isEmpty() && !texts.contains(notice->text()))
        texts.append(notice->text());
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (!box || event->type() != QEvent::Show)
        return false;
    texts.append(box->text());
    m_rules.SeeBox(box->text());
    const auto answer = [this, box = QPointer<QMessageBox>(box)] {
        if (!box || !box->isVisible() || (instead && instead(*box)))
            return;
        if (box->standardButtons().testFlag(QMessageBox::Cancel))
            m_rules.Confirm();
        box->button(QMessageBox::Ok)->click();
    };
    if (patienceMs > 0)
        CClock::Current().SetAlarm(patienceMs, answer);
    else
        QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    return false;
}

} // namespace krt550
