#pragma once

#include "drive/signals.h"

namespace krt550 {

class CRegisterFile;

/// Who commands the drive, and with which control word: the tool in local control, the overriding control by 7.01, or
/// another place that does not give the drive up.
class CControlPlaces {
public:
    ControlPlace GetPlace() const { return m_place; }
    bool IsLocal() const { return m_place == ControlPlace::Local; }
    /// The main control word of the fieldbus (or of the drive-to-drive link, 10.01 = 2) counts.
    bool IsByBus(const CRegisterFile& registers) const;
    bool IsByLink(const CRegisterFile& registers) const;

    /// The tool takes over with the control word and the reference that are in use.
    void TakeLocal(quint16 word, double reference);
    void ReleaseLocal() { m_place = ControlPlace::Remote; }
    /// Another place holds the drive, until it is told otherwise. What it has taken away does not come back.
    void SetOther(bool holds);

    // Local control word.
    bool IsLocallyOn() const;
    void SwitchOn();
    void SwitchOff();
    void Start();
    void Stop();
    /// The start command of a service run is used up: nobody may be surprised by a motor that runs on.
    void UseUpStart();
    /// The run command has been taken away: the next one counts again.
    void LookForNewStart(const CRegisterFile& registers);

    double GetLocalReference() const { return m_reference; } ///< [rpm]
    void SetLocalReference(double rpm) { m_reference = rpm; }

    /// The word that counts.
    quint16 GetWord(const CRegisterFile& registers) const;

private:
    quint16 GivenWord(const CRegisterFile& registers) const;

    ControlPlace m_place = ControlPlace::Remote;
    quint16 m_word = 0;
    double m_reference = 0;
    bool m_usedUp = false;
};

} // namespace krt550
