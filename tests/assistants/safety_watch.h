#pragma once

#include "tests/assistants/feedback_drive.h"

#include <QMessageBox>
#include <QObject>

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
    /// What is left behind: motor, contactor, service mode, local control.
    QStringList Remains() const;

    bool IsTurning() const { return m_turning; }
    QStringList violations;

protected:
    void Happened(const QString& call) override;

private:
    void Judge(const QString& call);

    bool m_endAsked = false;
    bool m_confirmed = false;
    bool m_turning = false;
    bool m_closed = false; ///< the contactor
    int m_looksLeft = -1;  ///< until the motor stands, once it was told to stop
};

/// Answers every message box with OK after a while, tells the drive of it and remembers the texts, those of notices too.
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
    WatchedDrive& m_drive;
};

} // namespace krt550
