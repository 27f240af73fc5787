#include "host/play/player.h"

#include "host/closing.h"
#include "host/hands/front_window.h"

#include <QMessageBox>

namespace krt550 {
namespace {

// Never 0: the next line would overtake what the line before has posted.
constexpr qint64 kNextLineMs = 1;
constexpr qint64 kLookAgainMs = 20;

QString BoxText() {
    return QStringLiteral("a message box \"%1\"").arg(BoxInFront()->text().simplified());
}

/// What a line of Wait or Expect is about: the line without its first word.
QString Expectation(const PlayAction& action) {
    return action.source.section(QLatin1Char(' '), 1).trimmed();
}

} // namespace

CPlayer::CPlayer(PlayScript script, CPlayStage& stage, const Hands& hands, CClosing& closing,
                 const QString& shotDirectory, PlayOutput output)
    : m_script(std::move(script)), m_context{stage, hands, shotDirectory, output.print}, m_output(std::move(output)),
      m_closing(closing), m_timer([this] { Step(); }) {}

void CPlayer::Begin() {
    m_timer.StartOnce(kNextLineMs);
}

bool CPlayer::Finish() {
    m_returned = true;
    if (m_closing.HasBegun())
        StopPlaying();
    if (!m_isOver)
        m_rest.exec();
    return !m_failed;
}

void CPlayer::Step() {
    if (m_closing.HasBegun())
        return StopPlaying();
    if (m_next == m_script.actions.size())
        return EndOfScript();
    const PlayAction& action = m_script.actions[m_next];
    if (!m_announced)
        Announce(action);
    const Judgement judgement = Judge(action);
    if (judgement.step == Judgement::Go)
        return Do(action);
    const bool patient = CClock::Current().Now() - m_dueSince < qint64(action.withinSeconds * 1000);
    if (judgement.step == Judgement::Later && patient)
        return m_timer.StartOnce(kLookAgainMs);
    Fail(action.line, judgement.expected, judgement.found);
}

void CPlayer::Announce(const PlayAction& action) {
    m_announced = true;
    m_dueSince = CClock::Current().Now();
    m_output.print(QStringLiteral("%1:%2  %3").arg(m_script.name).arg(action.line).arg(action.source));
}

void CPlayer::Do(const PlayAction& action) {
    ++m_next;
    m_announced = false;
    m_timer.StartOnce(kNextLineMs);
    ++m_acting;
    const QString error = Act(action, m_context);
    --m_acting;
    if (!error.isEmpty())
        Fail(action.line, action.source, error);
}

CPlayer::Judgement CPlayer::Judge(const PlayAction& action) const {
    if (IsBoxUnexpected(action))
        return {Judgement::Never, QStringLiteral("no message box before \"%1\"").arg(action.source), BoxText()};
    if (action.verb == Verb::Wait || action.verb == Verb::Expect)
        return JudgeByCondition(action);
    if (!NeedsWindow(action.verb))
        return {Judgement::Go, {}, {}};
    if (m_returned)
        return {Judgement::Never, action.source, QStringLiteral("the wizard, closed already")};
    if (action.verb == Verb::Answer && !BoxInFront())
        return {Judgement::Later, QStringLiteral("a message box to answer"), VisibleTitles()};
    return {FrontWindow() ? Judgement::Go : Judgement::Later, QStringLiteral("a window"), VisibleTitles()};
}

CPlayer::Judgement CPlayer::JudgeByCondition(const PlayAction& action) const {
    if (action.condition.kind == ConditionKind::Seconds)
        return JudgeWait(action);
    const PlayState state{m_acting == 0, m_returned};
    const Finding finding = CheckCondition(action.condition, m_context.stage, state);
    if (finding.holds)
        return {Judgement::Go, {}, {}};
    // A window may be on its way for an Expect too; once the wizard has returned only the drive still moves.
    const bool mayCome = action.verb == Verb::Wait || (NeedsWindow(action.condition.kind) && !FrontWindow());
    const bool over = m_returned && !MovesByItself(action.condition.kind);
    return {mayCome && !over ? Judgement::Later : Judgement::Never, Expectation(action), finding.found};
}

CPlayer::Judgement CPlayer::JudgeWait(const PlayAction& action) const {
    const qint64 waited = CClock::Current().Now() - m_dueSince;
    if (waited >= qint64(action.condition.arguments.seconds * 1000))
        return {Judgement::Go, {}, {}};
    return {Judgement::Later, Expectation(action), QStringLiteral("a clock that stands still")};
}

bool CPlayer::IsBoxUnexpected(const PlayAction& action) const {
    if (!BoxInFront())
        return false;
    const bool looks = action.verb == Verb::Wait || action.verb == Verb::Expect;
    return looks ? !LooksPastBoxes(action.condition.kind) : !LooksPastBoxes(action.verb);
}

void CPlayer::EndOfScript() {
    if (BoxInFront())
        return Fail(m_script.actions.empty() ? 0 : m_script.actions.back().line,
                    QStringLiteral("no message box at the end"), BoxText());
    if (m_returned)
        return StopPlaying();
    m_output.print(QStringLiteral("%1: the script is over, the wizard is closed").arg(m_script.name));
    Close();
}

void CPlayer::Fail(int line, const QString& expected, const QString& found) {
    if (m_isOver || m_failed)
        return;
    m_failed = true;
    m_output.complain(QStringLiteral("%1:%2: failed\n  expected: %3\n  there was: %4")
                          .arg(m_script.name)
                          .arg(line)
                          .arg(expected, found));
    Close();
}

void CPlayer::Close() {
    if (!m_returned)
        m_closing.Begin();
    StopPlaying();
}

void CPlayer::StopPlaying() {
    m_isOver = true;
    m_timer.Stop();
    m_rest.quit();
}

} // namespace krt550
