#include "tests/assistants/safety_watch.h"

#include "hostlib/tolvbo32/clock.h"
#include "wizard/motor/make_safe.h"
#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

constexpr int kLooksToStand = 2;
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
    return text.contains("simulated failure") || text.contains("did not answer");
}

namespace {

/// What a macro, a selector of the procedures' texts or a setting of a terminal stands in.
bool IsConnection(quint16 reg) {
    const auto isIn = [reg](int first, int last) { return reg >= first && reg <= last; };
    return reg == 9908 || reg == 1005 || reg == 1006 || reg == 1101 || reg == 2503 || isIn(1025, 1032) ||
           isIn(1301, 1316) || isIn(1401, 1416) || isIn(1501, 1510);
}

} // namespace

WatchedDrive::WatchedDrive() {
    onCall = [this](const QString& call) { Judge(call); };
}

void WatchedDrive::HoldConnections(const std::vector<std::pair<quint16, quint16>>& wanted) {
    for (const auto& [reg, word] :
         {std::pair<quint16, quint16>{1005, 1}, {1101, 1}, {1006, 2}, {1501, 101}, {1401, 802}})
        words[reg] = word;
    m_connections.clear();
    for (const auto& [reg, word] : words)
        if (IsConnection(reg))
            m_connections[reg] = {word};
    for (const auto& [reg, word] : wanted)
        m_connections[reg].insert(word);
}

/// No connection is lost that the person did not take off, and no macro loaded that nobody chose.
void WatchedDrive::JudgeConnections(const QString& call) {
    if (!call.startsWith("write "))
        return;
    const quint16 reg = call.section(' ', 1).section('=', 0, 0).toUShort();
    const quint16 word = call.section('=', 1).toUShort();
    const auto connection = m_connections.find(reg);
    if (connection != m_connections.end() && !connection->second.contains(word))
        violations.append(call + " loses a connection");
    if (call == "write 9907=1" && words[9908] == m_loadedMacro)
        violations.append("the macro is loaded that was loaded before");
}

void WatchedDrive::Judge(const QString& call) {
    JudgeConnections(call);
    if (m_endAsked && MakesMoreAlive(call))
        violations.append(call + " after the end was asked for");
    if (call == "start motor" && !m_confirmed)
        violations.append("started without a confirmation");
    if (call == "start motor") // whoever has agreed to turn the motor by hand may start it again
        m_confirmed = m_confirmed && words[9906] == 0;
    if (call == "release local control" && m_turning)
        violations.append("local control given back over a turning motor");
    const bool confirms = call == "stop motor" || call == "open contactor" || call == "refresh";
    if (IsMotorStopping() && m_turning && m_looksLeft >= 0 && !confirms)
        violations.append(call + " while the stop waits to be confirmed");
}

void WatchedDrive::SeeBox(const QString& text) {
    if (m_turning && !IsAlarm(text))
        violations.append("a box over a turning motor: " + text);
}

QStringList WatchedDrive::Remains() const {
    QStringList left;
    if (m_turning)
        left.append("the motor turns");
    if (m_closed)
        left.append("the contactor is closed");
    if (words.at(9906) != 0)
        left.append("a service mode is set");
    if (localControl)
        left.append("local control is held");
    return left;
}

void WatchedDrive::Happened(const QString& call) {
    FeedbackDrive::Happened(call);
    if (call == "write 9907=1")
        m_loadedMacro = words[9908];
    if (call == "close contactor")
        m_closed = true;
    else if (call == "open contactor")
        m_closed = false;
    else if (call == "start motor" && m_closed)
        m_turning = true;
    else if (call == "stop motor" && m_turning && m_looksLeft < 0)
        m_looksLeft = kLooksToStand;
    else if (call == "refresh" && m_looksLeft >= 0 && --m_looksLeft < 0)
        m_turning = false;
    if (call == "start motor")
        m_looksLeft = -1;
    statusWord = m_turning ? 0 : kStatusStopped;
}

BoxClerk::BoxClerk(WatchedDrive& drive) : m_drive(drive) {
    qApp->installEventFilter(this);
}

/// Whatever one click, or one key, sets off tells of a drive that does not answer once.
void BoxClerk::CountLosses(const QObject* watched, QEvent::Type event) {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    const auto* box = widget ? qobject_cast<const QMessageBox*>(widget->window()) : nullptr;
    if (box == widget && box && event == QEvent::Show && TellsOfLoss(box->text()) && m_losses++ > 0)
        m_drive.violations.append("told again: " + box->text());
    const bool isAct = event == QEvent::MouseButtonPress || event == QEvent::KeyPress || event == QEvent::Close;
    if (widget && !box && isAct)
        m_losses = 0;
}

bool BoxClerk::eventFilter(QObject* watched, QEvent* event) {
    CountLosses(watched, event->type());
    const auto* notice = qobject_cast<QLabel*>(watched);
    if (notice && event->type() == QEvent::Paint && notice->objectName().toInt() == kIdNotice &&
        !notice->text().isEmpty() && !texts.contains(notice->text()))
        texts.append(notice->text());
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (!box || event->type() != QEvent::Show)
        return false;
    texts.append(box->text());
    m_drive.SeeBox(box->text());
    const auto answer = [this, box = QPointer<QMessageBox>(box)] {
        if (!box || !box->isVisible() || (instead && instead(*box)))
            return;
        if (box->standardButtons().testFlag(QMessageBox::Cancel))
            m_drive.Confirm();
        box->button(QMessageBox::Ok)->click();
    };
    if (patienceMs > 0)
        CClock::Current().SetAlarm(patienceMs, answer);
    else
        QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    return false;
}

} // namespace krt550
