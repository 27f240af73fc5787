#pragma once

#include "drive/motor_potentiometer.h"
#include "drive/pi_controller.h"
#include "drive/speed_ramp.h"

#include <QtGlobal>

#include <array>
#include <limits>
#include <optional>

namespace krt550 {

class CAnalogInputs;
class CDigitalInputs;
class CRegisterFile;

/// How torque and speed controller share the torque; the numbers of 26.01.
enum class TorqueMode : quint16 { Speed, Torque, Smaller, Larger, Sum };

/// What is asked of the torque, relative to rated torque.
struct TorqueDemand {
    TorqueMode mode = TorqueMode::Speed;
    double torque = 0;
    int cut = 0;                                            ///< 1 it was above 20.14, -1 below 20.15
    double limit = std::numeric_limits<double>::infinity(); ///< both ways, beside 20.05 and 20.06
    std::optional<double> current; ///< armature current reference in place of all that, relative to rated current
};

/// Speed and torque references of the remote control places, as the selectors of groups 11, 12, 20, 25, 26 and 43 and
/// the inputs choose them.
class CSelectedReferences {
public:
    void Read(const CRegisterFile& registers);
    /// `jog` is the jog speed that is wanted, 0 for none.
    void Step(double seconds, bool running, int jog, const CDigitalInputs& digital, const CAnalogInputs& analog,
              const CRegisterFile& registers);

    double GetSpeed() const { return m_speed; } ///< [rpm], not yet within the speed limits
    RampSet GetRamp() const { return m_ramp; }
    const TorqueDemand& GetTorque() const { return m_torque; }
    /// 2.01 to 2.03, 2.08, 2.21 and 2.29.
    void Show(CRegisterFile& registers) const;

private:
    double SourceSpeed(quint16 source, const CAnalogInputs& analog, const CRegisterFile& registers) const;
    double ChooseSpeed(int jog, const CDigitalInputs& digital) const;
    void StepTorque(double seconds, const CDigitalInputs& digital, const CAnalogInputs& analog,
                    const CRegisterFile& registers);

    CMotorPotentiometer m_pot;
    CLag m_torqueFilter;
    double m_scaling = 0; ///< speed that counts as 100 % [rpm]
    std::array<quint16, 2> m_sources{};
    double m_gain = 1;
    quint16 m_constantMode = 0;
    std::array<double, 3> m_constants{}; ///< [rpm]
    std::array<double, 2> m_jogs{};      ///< [rpm]
    quint16 m_directions = 0;            ///< 1 forward, 2 reverse only

    std::array<double, 2> m_references{}; ///< [rpm]
    double m_speed = 0;
    RampSet m_ramp = RampSet::First;
    TorqueDemand m_torque;
};

} // namespace krt550
