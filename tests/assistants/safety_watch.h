#pragma once

#include "tests/assistants/feedback_drive.h"

namespace krt550 {

/// A drive with a motor that needs a few looks to stand, and with somebody who watches what is done to it.
class WatchedDrive : public FeedbackDrive {
public:
    WatchedDrive();

    /// Somebody wants out: nothing may make the drive more alive from now on.
    void AskForTheEnd() { m_endAsked = true; }
    /// A question was answered with OK.
    void Confirm() { m_confirmed = true; }
    /// A message box came up.
    void SeeBox(const QString& text);
    /// From now on a connection of a terminal may become what the person wants of it, and nothing else.
    void HoldConnections(const std::vector<std::pair<quint16, quint16>>& wanted);
    /// 99.08 names the macro whose connections the drive has.
    bool IsNamedMacroLoaded() const { return words.at(9908) == m_loadedMacro; }
    /// What is left behind: motor, contactor, service mode, local control.
    QStringList Remains() const;

    bool IsTurning() const { return m_turning; }
    QStringList violations;

protected:
    void Happened(const QString& call) override;

private:
    void Judge(const QString& call);
    void JudgeConnections(const QString& call);

    bool m_endAsked = false;
    bool m_confirmed = false;
    bool m_turning = false;
    bool m_closed = false;                              ///< the contactor
    std::map<quint16, std::set<quint16>> m_connections; ///< what each may be
    quint16 m_loadedMacro = 0;
    int m_looksLeft = -1; ///< until the motor stands, once it was told to stop
};

/// A box says that the drive did not answer.
bool TellsOfLoss(const QString& text);

/// Answers every message box with OK after a while, tells the drive of it and remembers the texts, those of notices
/// too.
class BoxClerk : public QObject {
public:
    explicit BoxClerk(WatchedDrive& drive);

    int patienceMs = 0; ///< of the current clock
    /// Called in place of the answer when it returns true.
    std::function<bool(QMessageBox&)> instead;
    QStringList texts;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CountLosses(const QObject* watched, QEvent::Type event);

    WatchedDrive& m_drive;
    int m_losses = 0; ///< told since a person last did something
};

} // namespace krt550
