#pragma once

#include <QtGlobal>

#include <algorithm>

namespace krt550 {

/// What is wrong with the three phases before the converter.
enum class PhaseDefect {
    None,
    Missing,  ///< one phase is gone, and the drive's supervision sees it
    Order,    ///< left-hand rotation
    FuseBlown ///< one branch fuse behind the supervision is gone
};

/// The supply of the armature converter.
class CMainsSupply {
public:
    explicit CMainsSupply(double rated) : m_rated(rated), m_voltage(rated) {}

    /// Line to line [V].
    void SetVoltage(double voltage) { m_voltage = std::max(0.0, voltage); }
    /// No supply at all, or the rated one again.
    void SetLost(bool lost) { m_voltage = lost ? 0 : m_rated; }
    /// Gone for `milliseconds` from now on, then back by itself.
    void Dip(qint64 milliseconds) { m_dip = milliseconds; }
    void SetPhases(PhaseDefect defect) { m_phases = defect; }
    PhaseDefect GetPhases() const { return m_phases; }
    /// How far its phase strays from where the converter expects it [deg].
    void SetWander(double degrees) { m_wander = degrees; }
    double GetWander() const { return m_wander; }
    double GetVoltage() const { return m_dip > 0 ? 0 : m_voltage; }
    bool IsDipping() const { return m_dip > 0; }
    void Pass(qint64 milliseconds) { m_dip = std::max<qint64>(0, m_dip - milliseconds); }

private:
    double m_rated;
    double m_voltage;
    double m_wander = 0;
    qint64 m_dip = 0;
    PhaseDefect m_phases = PhaseDefect::None;
};

} // namespace krt550
