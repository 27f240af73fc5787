#pragma once

#include "drive/terminals.h"
#include "host/connection.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace krt550 {

/// What a play can reach behind the windows: the drive itself and the log of the wizard's calls to it.
class CPlayStage {
public:
    virtual ~CPlayStage() = default;
    /// Changes a parameter of a drive past the wizard's link. Returns what went wrong, or an empty text.
    virtual QString ChangeDrive(DriveSide side, quint16 reg, const QString& text) = 0;
    /// Value that a drive holds, as text in shown units; nothing when there is no such drive or parameter.
    virtual std::optional<QString> DriveText(DriveSide side, quint16 reg) = 0;
    /// Has the PLC on the fieldbus send another word. Returns what went wrong, or an empty text.
    virtual QString SendFromPlc(int number, quint16 word) = 0;
    /// The word that the PLC has got; nothing when the fieldbus does not carry it.
    virtual std::optional<quint16> ReceivedByPlc(int number) = 0;
    /// "99.06 Service mode: Normal", or why there is no such text.
    virtual QString DescribeDrive(quint16 reg) = 0;
    /// "43.10 Armature resistance: 2578 mΩ, the motor's own: 2581 mΩ (-0.1 %)". A value that lies farther than
    /// `percent` from the motor's own, or that nobody knows of the motor, is an error; the text says so.
    virtual QString CompareWithMotor(quint16 reg, int percent, bool& isNear) = 0;
    /// What somebody measures at the motor itself and would type into a row; nothing when nobody can.
    virtual std::optional<QString> MeasureText(quint16 reg) = 0;
    /// Switches an input of the drive, or puts a voltage on it. Returns what went wrong, or an empty text.
    virtual QString SetTerminal(const Terminal& terminal, double value) = 0;
    /// What lies at a terminal; nothing when nobody can see it.
    virtual std::optional<double> TerminalValue(const Terminal& terminal) = 0;
    /// Switches a fault of the drive on. Returns what went wrong, or an empty text.
    virtual QString SwitchFault(const QString& name) = 0;
    virtual const QStringList& LogLines() const = 0;
    virtual void ClearLog() = 0;
};

} // namespace krt550
