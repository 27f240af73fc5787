#pragma once

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter_description.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <vector>

namespace krt550 {

/// A drive that the tool has connected, whatever its kind.
class CConnection {
public:
    virtual ~CConnection() = default;
    virtual CHostDrive& GetDrive() = 0;
    virtual CParameterLink& GetLink() = 0;
    /// The parameters that this drive has.
    virtual std::vector<ParameterDescription> GetParameters() const = 0;

    /// Reads and changes a register past the link, as if the drive itself did. False when that cannot be.
    virtual bool PeekWord(quint16 reg, quint16& word) const = 0;
    virtual bool PokeWord(quint16 reg, quint16 word) = 0;
    /// Switches a fault on. Returns what went wrong, or an empty text.
    virtual QString SwitchFault(const QString& name) = 0;
};

} // namespace krt550
