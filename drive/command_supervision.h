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
    /// Whoever has been heard over the fieldbus or the link must go on; before that nobody is waited for.
    void HearBus() { m_bus.Hear(); }
    void HearLink() { m_link.Hear(); }
    void SetBusLost(bool lost) { m_bus.lost = lost; }
    void SetLinkLost(bool lost) { m_link.lost = lost; }
    bool IsBusLost() const { return m_bus.lost; }
    bool IsLinkLost() const { return m_link.lost; }

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
    struct Line {
        qint64 silence = 0; ///< [ms]
        bool heard = false; ///< once
        bool lost = false;  ///< cut

        void Hear() {
            silence = 0;
            heard = true;
        }
        void Step(qint64 milliseconds, bool counts) {
            silence = counts && (heard || lost) ? silence + milliseconds : 0;
        }
    };

    qint64 m_tool = 0; ///< silence [ms]
    Line m_bus;
    Line m_link;
    bool m_toolGivenUp = false;
    quint16 m_stopReason = 0;
    bool m_atLimit = false;
    bool m_constantSpeed = false;
};

} // namespace krt550
