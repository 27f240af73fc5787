#pragma once

#include "host/play/act.h"
#include "host/play/condition.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QTimer>

namespace krt550 {

/// Where a play prints: what it does, and what went wrong.
struct PlayOutput {
    std::function<void(const QString&)> print;
    std::function<void(const QString&)> complain;
};

/// Plays a script on the windows in front. Every line is done from an event of its own, and the next one is due before
/// a line is done: so a line may open a message box or start a long procedure, and the next lines answer the box or
/// watch the procedure. On the first thing that goes wrong everything is closed, so that the wizard returns and leaves
/// the drive safe.
class CPlayer : public QObject {
    Q_OBJECT

public:
    /// `stage` is borrowed.
    CPlayer(PlayScript script, CPlayStage& stage, const QString& shotDirectory, PlayOutput output);

    /// Makes the first line due; to be called before the wizard opens its modal window.
    void Begin();
    /// To be called when the wizard has returned: does the lines that are left. True when the whole play went well.
    bool Finish();

    /// How long lines wait for a window or, without a word of their own, for what they wait for.
    static constexpr int kPatienceMs = 60'000;
    /// How long the windows may take to close; after that the program ends the hard way.
    static constexpr int kClosingMs = 10'000;

private:
    enum class Phase { Playing, Closing, Over };
    /// What to do about the line that is due.
    struct Judgement {
        enum { Go, Later, Never } step;
        QString expected;
        QString found;
    };

    void Step();
    void StepClosing();
    void EndOfScript();
    void Do(const PlayAction& action);
    void Announce(const PlayAction& action);
    Judgement Judge(const PlayAction& action) const;
    Judgement JudgeWait(const PlayAction& action) const;
    Judgement JudgeByCondition(const PlayAction& action) const;
    bool IsBoxUnexpected(const PlayAction& action) const;
    void Fail(int line, const QString& expected, const QString& found);
    void StartClosing();
    void StopPlaying();

    PlayScript m_script;
    ActingContext m_context;
    PlayOutput m_output;
    QTimer m_timer;
    QElapsedTimer m_patience; ///< since the line became due, or the closing began
    qint64 m_dueSince = 0;    ///< the same on the clock of drive and wizard
    size_t m_next = 0;
    bool m_announced = false;
    int m_acting = 0; ///< actions on the stack
    bool m_failed = false;
    bool m_returned = false;
    Phase m_phase = Phase::Playing;
    QEventLoop m_rest;
};

} // namespace krt550
