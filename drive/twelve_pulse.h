#pragma once

#include <QtGlobal>

namespace krt550 {

class CRegisterFile;
struct DriveSettings;
struct MotorState;

/// How the slave converter is wired to the master.
enum class SlaveWiring { None, Parallel, Series };

/// The slave converter at the other end of the 12-pulse link, and what is wrong with it.
struct SlaveConverter {
    SlaveWiring wiring = SlaveWiring::None;
    quint16 node = 31;        ///< its number on the link
    bool lost = false;        ///< it does not answer
    bool bridgeStays = false; ///< it does not change over to the other bridge
    double weakness = 0;      ///< share of its current that the master carries in its place; parallel only
};

/// 12-pulse operation: the drive as master (43.01) of a slave converter. In parallel (47.01) each carries half of the
/// motor's current, in series both carry all of it; together they feed the motor as one converter would. Shows the
/// slave's current and the difference (1.35, 1.36, in percent of nominal current) and supervises the sharing (47.02,
/// 47.03), the link (94.03), the change of bridges (47.05) and the end of the current before it (43.14).
class CTwelvePulse {
public:
    SlaveConverter& GetSlave() { return m_slave; }

    /// The trip that is due, 0: none. `on`: the contactor is closed.
    quint16 Step(double seconds, bool on, const MotorState& state, const DriveSettings& settings,
                 CRegisterFile& registers);
    /// The slave's node, as long as the drive hears it; 0: none.
    quint16 GetNode() const { return m_answers ? m_slave.node : quint16{0}; }

private:
    bool Answers(const CRegisterFile& registers) const;
    double Difference(const MotorState& state, const DriveSettings& settings, bool sameBridge,
                      CRegisterFile& registers);

    SlaveConverter m_slave;
    bool m_answers = false;
    int m_slaveBridge = 1;
    double m_silent = 0;    ///< [s]
    double m_unequal = 0;   ///< [s]
    double m_reversing = 0; ///< [s]
    double m_flowing = 0;   ///< a current that should be gone [s]
};

} // namespace krt550
