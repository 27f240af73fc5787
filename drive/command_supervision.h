#pragma once

#include "drive/supervision.h"

#include <QtGlobal>

namespace krt550 {

class CRegisterFile;

/// What the supervision of the commanders has to know.
struct CommandView {
    bool byTool = false; ///< the tool holds local control
    bool byBus = false;  ///< the fieldbus' word counts
    bool byLink = false; ///< the drive-to-drive link's word counts
    bool on = false;     ///< contactor closed
    bool driving = false;
};

/// Whoever commands the drive must be heard from: the tool in local control (30.27, 30.29), the fieldbus
/// (30.28, 30.31), the drive-to-drive link (30.30, 30.32). After a silence the drive stops as chosen and trips when it
/// stands, or goes on with an alarm. A tool that is not heard loses local control: with the trip, or at once while the
/// contactor is open.
class CCommandSupervision {
public:
    void HearTool() { m_tool = 0; }
    void SetBusLost(bool lost) { m_busLost = lost; }
    void SetLinkLost(bool lost) { m_linkLost = lost; }

    Findings Step(qint64 milliseconds, const CommandView& view, const CRegisterFile& registers);
    /// Local control is taken from the tool.
    bool IsToolGivenUp() const { return m_toolGivenUp; }
    /// Code of the trip that the drive is stopping for, 0: none.
    quint16 GetStopReason() const { return m_stopReason; }
    /// And it stops at the torque limit, without a ramp.
    bool StopsAtLimit() const { return m_atLimit; }
    /// The reference gives way to constant speed 1.
    bool WantsConstantSpeed() const { return m_constantSpeed; }

private:
    qint64 m_tool = 0; ///< silence [ms]
    qint64 m_bus = 0;
    qint64 m_link = 0;
    bool m_toolGivenUp = false;
    bool m_busLost = false;
    bool m_linkLost = false;
    quint16 m_stopReason = 0;
    bool m_atLimit = false;
    bool m_constantSpeed = false;
};

} // namespace krt550
