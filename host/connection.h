#pragma once

#include "drive/register_file.h"
#include "drive/terminals.h"
#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <optional>

namespace krt550 {

/// The connected drive, or the one at the other end of its drive-to-drive link.
enum class DriveSide { Own, Partner };

/// A drive that the tool has connected, whatever its kind.
class CConnection {
public:
    virtual ~CConnection() = default;
    virtual CHostDrive& GetDrive() = 0;
    /// Finds out whether the drive is there. False, and the reason in `error`, when it is not.
    virtual bool Open(QString& error) {
        error.clear();
        return true;
    }
    /// The drive's own line; every access of its parameter tree ends here.
    virtual CParameterLink& GetLink() = 0;
    /// Lets the drive's parameter tree reach the drive through `link`, which passes on to GetLink. Borrowed; null takes
    /// it back.
    virtual void SetTreeLink(CParameterLink* link) = 0;

    /// Description of a register of the drive, or of the one at the other end of its drive-to-drive link; null when
    /// that has no such register, or when there is no such drive.
    virtual const ParameterDescription* FindParameter(DriveSide side, quint16 reg) = 0;
    /// Reads a register that the drive has, past what watches the line; nothing when it cannot be read.
    virtual std::optional<quint16> PeekWord(DriveSide side, quint16 reg) = 0;
    /// Changes one so, as if somebody else did. Returns what went wrong, or an empty text.
    virtual QString PokeWord(DriveSide side, quint16 reg, quint16 word) = 0;
    /// Another word that the PLC on the drive's fieldbus sends, 1 to 12. Returns what went wrong, or an empty text.
    virtual QString SendFromPlc(int number, quint16 word) = 0;
    /// The word that the PLC has got last; nothing when the fieldbus does not carry it.
    virtual std::optional<quint16> ReceivedByPlc(int number) = 0;
    /// Switches a fault on, or all of them off: "none". Returns what went wrong, or an empty text.
    virtual QString SwitchFault(const QString& name) = 0;
    /// Switches an input, or puts a voltage on it. Returns what went wrong, or an empty text.
    virtual QString SetTerminal(const Terminal& terminal, double value) = 0;
    /// What lies at a terminal; nothing when nobody can see it, as with any drive that is not simulated.
    virtual std::optional<double> TerminalValue(const Terminal& terminal) = 0;

    /// What the motor itself would have in a register that tells about it, in shown units; nothing when it is not
    /// known, as with any drive that is not simulated.
    virtual std::optional<double> TrueValue(quint16 reg) = 0;
};

} // namespace krt550
