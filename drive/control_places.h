#pragma once

#include "drive/signals.h"

namespace krt550 {

class CDigitalInputs;
class CRegisterFile;

/// Where the commands come from while nobody holds the drive; the numbers of 10.01.
enum class CommandSource : quint16 { Terminals, Fieldbus, Link };

/// By 10.01, or by the input for hand and automatic where it is connected. A drive description without 10.01 knows the
/// fieldbus only.
CommandSource ChooseSource(const CDigitalInputs& inputs, const CRegisterFile& registers);

/// Who commands the drive, and with which control word: the tool in local control, the terminals, the overriding
/// control by 7.01, or another place that does not give the drive up.
class CControlPlaces {
public:
    ControlPlace GetPlace() const { return m_place; }
    bool IsLocal() const { return m_place == ControlPlace::Local; }
    /// What the digital inputs say: who commands, and the terminals' control word.
    void SetTerminals(CommandSource source, quint16 word) {
        m_source = source;
        m_terminalWord = word;
    }
    bool IsByTerminals() const { return IsRemoteBy(CommandSource::Terminals); }
    /// The main control word of the fieldbus counts: it says so itself.
    bool IsByBus(const CRegisterFile& registers) const;
    bool IsByLink() const { return IsRemoteBy(CommandSource::Link); }

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
    bool IsRemoteBy(CommandSource source) const { return m_place == ControlPlace::Remote && m_source == source; }
    quint16 GivenWord(const CRegisterFile& registers) const;

    ControlPlace m_place = ControlPlace::Remote;
    CommandSource m_source = CommandSource::Fieldbus;
    quint16 m_terminalWord = 0;
    quint16 m_word = 0;
    double m_reference = 0;
    bool m_usedUp = false;
};

} // namespace krt550
