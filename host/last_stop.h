#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace krt550 {

class CHostDrive;
class CParameterLink;

/// Sees to it that the program leaves no turning motor behind, whichever way it ends. It needs neither windows nor an
/// event loop: it also works when the display is gone or the program is already on its way out. While one of these
/// lives, an exit() anywhere in the program does Finish first.
///
/// It does nothing unless the tool holds local control of the drive.
class CLastStop {
public:
    /// How long the drive may answer nothing, or refuse to be given back, until it is left to its own supervision [ms].
    static constexpr qint64 kSilenceMs = 5000;
    static constexpr qint64 kRepeatMs = 250; ///< between two stops that are not confirmed

    /// `drive` and `link` are borrowed. `complain` gets lines for the person at the terminal.
    CLastStop(CHostDrive& drive, CParameterLink& link, std::function<void(const QString&)> complain);
    ~CLastStop();
    CLastStop(const CLastStop&) = delete;
    CLastStop& operator=(const CLastStop&) = delete;

    /// Ends the service mode and stops the motor: at the first call at once, then again when the last stop is 250 ms
    /// old and not confirmed. Never waits. True once nothing turns under the tool's control any more, or the drive has
    /// been silent for too long.
    bool Stop();

    /// Somebody wants a stop now: the next Stop sends it at once, whatever was sent before.
    void BeginAnew();
    /// The drive has answered nothing for kSilenceMs: whether it has stopped nobody knows.
    bool IsSilent() const;
    /// Opens the contactor and gives local control back; for a motor that Stop has told to stand. Takes kSilenceMs when
    /// the drive refuses. False when it fell silent or kept local control; that has been told then.
    bool HandBack();

    /// Stop, and waits for standstill as long as that takes; then HandBack.
    bool Finish();

    /// What the program waits for, for the handler of a signal; null while it does not.
    static const char* WaitsFor();
    /// Does Finish, if there is one of these: for ways out of the program that do not return here.
    static void FinishNow();
    /// What StopFromCrash stops with: as little as possible should stand in between. Borrowed; otherwise the same as
    /// ever.
    void SetWayOfCrash(CHostDrive& drive, CParameterLink& link) {
        m_crashDrive = &drive;
        m_crashLink = &link;
    }
    /// Sends the stop once and waits for nothing: for a program that has crashed and may not be able to do more.
    static void StopFromCrash();

private:
    bool IsHeld();
    bool Hear(bool succeeded);
    void SendStop();
    void GiveBack();
    void TellOfWaiting(qint64 since);

    CHostDrive& m_drive;
    CParameterLink& m_link;
    CHostDrive* m_crashDrive;
    CParameterLink* m_crashLink;
    std::function<void(const QString&)> m_complain;
    std::optional<qint64> m_lastStop;
    std::optional<qint64> m_silentSince;
    bool m_inNormalMode = false; ///< the service mode has been ended
    bool m_isFinishing = false;
    qint64 m_toldAt = 0;
};

} // namespace krt550
