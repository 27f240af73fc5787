#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <functional>
#include <optional>
#include <span>

namespace krt550 {

class CHostDrive;
class CParameterLink;

/// What a register holds, as the raw word.
struct ParameterValue {
    quint16 reg = 0;
    quint16 word = 0;
};

/// A value that is not known, and why.
struct UnreadValue {
    quint16 reg = 0;
    QString reason;
};

/// What a drive holds, or a file says.
struct ParameterValues {
    std::vector<ParameterValue> values;
    std::vector<UnreadValue> unread;

    std::optional<quint16> Find(quint16 reg) const;
};

/// Reads these parameters, in their order. A drive that answers nothing any more is not asked for the rest; nor is it
/// once `isStopped` says so. What was not asked for is unread too.
ParameterValues ReadValues(CHostDrive& drive, CParameterLink& link, std::span<const ParameterDescription> parameters,
                           const std::function<bool()>& isStopped = {});

/// Null when there is none with this register.
const ParameterDescription* FindParameter(std::span<const ParameterDescription> parameters, quint16 reg);

/// Register of "99.06" or "9906", as people write it; nothing for anything else.
std::optional<quint16> ParseRegister(const QString& text);

/// "240 V": value text or number, with the unit.
QString ValueText(const ParameterDescription& parameter, quint16 word);

} // namespace krt550
