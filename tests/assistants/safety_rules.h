#pragma once

namespace krt550 {

/// A box says that the drive did not answer.
bool TellsOfLoss(const QString& text);

/// What may be done to a drive with a motor, whatever happens: nothing that makes it more alive once the end was asked
/// for, no start without an OK, no box over a turning motor, control never given back over one, and nothing but the
/// stop on the link while it is not confirmed. And whatever one click, or one key, sets off tells of a drive that does
/// not answer once; again only if it has answered meanwhile.
class SafetyRules {
public:
    /// Somebody wants out: nothing may make the drive more alive from now on.
    void AskForTheEnd() { m_endAsked = true; }
    /// A question was answered with OK.
    void Confirm() { m_confirmed = true; }
    /// A person did something: a loss is told anew.
    void NoteAct() {
        m_lossesTold = m_lossesHad = 0;
        m_lost = false;
    }
    /// A message box came up.
    void SeeBox(const QString& text);
    bool IsTurning() const { return m_turning; }

    QStringList violations;

protected:
    /// A call, in words as "start motor" or "write 9906=3", before it does anything.
    void JudgeCall(const QString& call, bool inServiceMode);
    /// What became of a call, from those who may lose the drive more than once in one act.
    void NoteOutcome(const QString& outcome);

    bool m_turning = false;
    bool m_toldToStop = false;

private:
    bool m_endAsked = false;
    bool m_confirmed = false;
    bool m_lost = false;
    int m_lossesHad = 0;  ///< since a person last did something
    int m_lossesTold = 0; ///< the same
};

/// Answers every message box with OK after a while, tells the rules of it and remembers the texts, those of notices
/// too.
class BoxClerk : public QObject {
public:
    explicit BoxClerk(SafetyRules& rules);

    int patienceMs = 0; ///< of the current clock
    /// Called in place of the answer when it returns true.
    std::function<bool(QMessageBox&)> instead;
    QStringList texts;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SafetyRules& m_rules;
};

} // namespace krt550
