#pragma once

#include "host/report/findings.h"

#include <span>

namespace krt550 {

/// The drive's values from its first session to its last, in the words of its description.
class CDriveValues {
public:
    explicit CDriveValues(const std::vector<RecordedSession>& sessions);

    const ParameterDescription* Find(quint16 reg) const;
    /// "240 V"; empty when the value is not known.
    QString LeftText(quint16 reg) const;
    /// Facts of these registers, as they were left; those that are not known are left out.
    QList<Fact> Facts(std::span<const quint16> registers) const;

    /// The value was left as the drive is delivered, or is not known.
    bool IsDefault(quint16 reg) const;

    /// Settings that were not left as they were found, by number.
    std::vector<ValueLine> Changed() const;
    /// Settings that were not left as the drive is delivered.
    std::vector<ValueLine> NotDefault() const;
    /// A line for one change; nothing for a register that the drive does not describe.
    std::optional<ValueLine> Line(quint16 reg, std::optional<quint16> from, std::optional<quint16> to) const;

    /// The last session has read the values at its end.
    bool AreLeftRead() const { return m_areLeftRead; }

private:
    std::map<quint16, ParameterDescription> m_parameters;
    RegisterWords m_found;
    RegisterWords m_left;
    bool m_areLeftRead = false;
};

} // namespace krt550
