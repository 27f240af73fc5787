#pragma once

#include "hostlib/tolvbo32/parameter_link.h"

#include <functional>

namespace krt550 {

class CFaultModes;
class CSimulatedDrive;

/// The line between host and simulated drive: carries requests, and disturbs them as the fault modes say.
class CSimulatedLink : public CParameterLink {
public:
    enum class Reply { Done, Refused, None };

    /// Both are borrowed and outlive the link.
    CSimulatedLink(CSimulatedDrive& drive, const CFaultModes& modes) : m_drive(drive), m_modes(modes) {}

    bool ReadWord(quint16 reg, quint16& word) override;
    bool WriteWord(quint16 reg, quint16 word) override;
    /// Why the last request failed; empty after one that did not.
    QString LastErrorText() const override { return m_error; }

    /// Has the drive carry out a request, which answers false when the drive refuses it. A reply that is later than
    /// 2 s is given up: the drive has carried out the request all the same.
    Reply Exchange(const std::function<bool()>& request);
    /// Replies are neither lost nor late here any more.
    void LeaveRepliesToLine() { m_leftToLine = true; }
    /// The drive would answer a request.
    bool IsAlive() const;
    /// Notes a failure that the host itself finds.
    void SetLastError(const QString& error) { m_error = error; }

private:
    bool Fail(const QString& error);

    CSimulatedDrive& m_drive;
    const CFaultModes& m_modes;
    bool m_leftToLine = false;
    QString m_error;
    quint32 m_replies = 0; ///< since the drive is connected
};

} // namespace krt550
