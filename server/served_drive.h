#pragma once

#include "drive/simulated_host_drive.h"
#include "modbus/wire_values.h"
#include "server/served_clock.h"

#include <span>

namespace krt550 {

/// What the drive remembers of one connection.
struct Master {
    quint16 lastCommand = 0; ///< as it was written, 0: none yet
    WireException lastResult = WireException::None;
    QString reason; ///< why its last refused request was refused
};

/// The simulated drive behind its register map. Any connection may read; only the one that took local control may
/// command, write parameters, and keep the drive from stopping for silence. A connection is known by its Master, which
/// is reported when it comes to an end.
class CServedDrive {
public:
    /// Both are borrowed; `time` is the clock that the drive goes by. From now on the line disturbs nothing: that is
    /// left to whoever carries the frames.
    CServedDrive(CSimulatedHostDrive& drive, CServedClock& time);

    /// Lets the time that has passed pass in the drive. It is to be called often, so that the drive lives on while
    /// nobody asks it anything.
    void Advance();

    /// A valid frame of this connection has arrived, whatever it asks for.
    void Hear(const Master& master);
    /// The connection is gone. Local control stays held until another connection takes it, or silence ends it.
    void Forget(const Master& master);

    /// Registers from `first` on. UnknownRegister unless all of them can be read.
    WireException Read(Master& master, quint16 first, std::span<quint16> words);
    /// Writes a field, a command or parameters in their order up to the first that is refused.
    WireException Write(Master& master, quint16 first, std::span<const quint16> words);

    /// Commands and writes are answered Busy for so long [ms]: the answer to one is still on its way.
    void SetBusy(qint64 milliseconds);

    CSimulatedHostDrive& GetDrive() { return m_host; }

private:
    bool IsHeldBy(const Master& master) const;
    bool IsHeldByOther(const Master& master) const;
    WireException Refuse(Master& master, WireException exception, const QString& reason);
    WireException RefuseWhenBusy(Master& master, bool mayTakeOver = false);
    WireException ReadParameter(Master& master, quint16 reg, quint16& word);
    WireException WriteParameter(Master& master, quint16 reg, quint16 word);
    WireException WriteParameters(Master& master, quint16 first, std::span<const quint16> words);
    WireException WriteCommand(Master& master, quint16 word, std::optional<qint32> reference);
    WireException Execute(Master& master, WireCommand command, qint32 reference);
    bool HasRegister(quint16 reg);

    Words StateBlock(const Master& master);
    Words FaultBlock(const Master& master);
    Words IdentityBlock(const Master& master);
    Words UnitTextBlock(const Master& master);

    CSimulatedHostDrive& m_host;
    CServedClock& m_time;
    const Master* m_holder = nullptr; ///< null while local control is held: its connection is gone
    quint16 m_commandCount = 0;
    qint64 m_busyUntil = 0; ///< [ms of the clock]
};

} // namespace krt550
