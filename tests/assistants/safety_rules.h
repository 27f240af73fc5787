#pragma once

namespace krt550 {

/// A box says that the drive did not answer.
bool TellsOfLoss(const QString& text);

/// What may be done to a drive with a motor, whatever happens: nothing that makes it more alive once the end was asked
/// for, no start without an OK, no box over a turning motor, control never given back over one, and nothing but the
/// stop on the link while it is not confirmed.
class SafetyRules {
public:
    /// Somebody wants out: nothing may make the drive more alive from now on.
    void AskForTheEnd() { m_endAsked = true; }
    /// A question was answered with OK.
    void Confirm() { m_confirmed = true; }
    /// A message box came up.
    void SeeBox(const QString& text);
    bool IsTurning() const { return m_turning; }

    QStringList violations;

protected:
    /// A call, in words as "start motor" or "write 9906=3", before it does anything.
    void JudgeCall(const QString& call, bool inServiceMode);

    bool m_turning = false;
    bool m_toldToStop = false;

private:
    bool m_endAsked = false;
    bool m_confirmed = false;
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
    void CountLosses(const QObject* watched, QEvent::Type event);

    SafetyRules& m_rules;
    int m_losses = 0; ///< told since a person last did something
};

} // namespace krt550
