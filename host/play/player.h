#pragma once

#include "host/play/act.h"
#include "host/play/condition.h"
#include "hostlib/tolvbo32/clock.h"

#include <QEventLoop>
#include <QObject>

namespace krt550 {

class CClosing;

/// Where a play prints: what it does, and what went wrong.
struct PlayOutput {
    std::function<void(const QString&)> print;
    std::function<void(const QString&)> complain;
};

/// Plays a script on the windows in front. Every line is done from an event of its own, and the next one is due before
/// a line is done: so a line may open a message box or start a long procedure, and the next lines answer the box or
/// watch the procedure. On the first thing that goes wrong, and at the end, everything is closed, so that the wizard
/// returns. A play is over when somebody else closes everything. All its waiting goes by the current clock.
class CPlayer {
public:
    /// `stage`, `hands` and `closing` are borrowed.
    CPlayer(PlayScript script, CPlayStage& stage, const Hands& hands, CClosing& closing, const QString& shotDirectory,
            PlayOutput output);

    /// Makes the first line due; to be called before the wizard opens its modal window.
    void Begin();
    /// To be called when the wizard has returned: does the lines that are left. True when the whole play went well.
    bool Finish();

private:
    /// What to do about the line that is due.
    struct Judgement {
        enum { Go, Later, Never } step;
        QString expected;
        QString found;
    };

    void Step();
    void EndOfScript();
    void Do(const PlayAction& action);
    void Announce(const PlayAction& action);
    Judgement Judge(const PlayAction& action) const;
    Judgement JudgeWait(const PlayAction& action) const;
    Judgement JudgeByCondition(const PlayAction& action) const;
    bool IsBoxUnexpected(const PlayAction& action) const;
    void Fail(int line, const QString& expected, const QString& found);
    void Close();
    void StopPlaying();

    PlayScript m_script;
    ActingContext m_context;
    PlayOutput m_output;
    CClosing& m_closing;
    CClockTimer m_timer;
    qint64 m_dueSince = 0; ///< when the line became due
    size_t m_next = 0;
    bool m_announced = false;
    int m_acting = 0; ///< actions on the stack
    bool m_failed = false;
    bool m_returned = false;
    bool m_isOver = false;
    QEventLoop m_rest;
};

} // namespace krt550
