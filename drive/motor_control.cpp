#include "drive/motor_control.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace krt550 {
namespace {

constexpr double kLeastFlux = 0.05; ///< torque is divided by no less

} // namespace

void CMotorControl::Step(const MotorCommand& command, const DriveSettings& settings) {
    const double fieldVoltage = StepField(command, settings);
    const bool starts = command.armature != m_mode;
    if (starts) {
        const bool keepsCurrent = m_mode == ArmatureMode::Current && command.armature == ArmatureMode::Speed;
        m_mode = command.armature;
        m_speedControl.Start(m_state.signals.used);
        m_pulseOver = false;
        m_pulseAngle = std::numbers::pi / 3 + command.firingAngle;
        if (!keepsCurrent) {
            m_slope = 0;
            StartBridge(settings);
        }
    }
    switch (m_mode) {
    case ArmatureMode::Blocked:
        StepOpen(fieldVoltage);
        break;
    case ArmatureMode::Braking:
        StepOpen(fieldVoltage, command.resistance);
        break;
    case ArmatureMode::Pulse:
        StepPulse(command.firingAngle, fieldVoltage);
        break;
    case ArmatureMode::Current:
    case ArmatureMode::Speed:
        StepCurrent(ReferenceFor(command, settings), fieldVoltage, settings);
        break;
    }
    Observe(command.guide, settings);
}

double CMotorControl::StepField(const MotorCommand& command, const DriveSettings& settings) {
    const double limit = settings.fieldVoltageLimit;
    double wanted = 0;
    double reference = 0;
    if (command.field == FieldMode::Voltage) {
        wanted = std::clamp(command.fieldVoltage, 0.0, limit);
        m_fieldController.Preset(0);
    } else if (command.field == FieldMode::Off) {
        m_fieldController.Preset(0);
    } else {
        const bool weakens = command.field == FieldMode::Regulated && settings.weakens;
        reference = command.fieldCurrent;
        if (weakens)
            reference *= settings.fieldOfFlux(m_fluxControl.Step(kStep, m_state.emf, m_state.signals.used, settings));
        // A field that is still there when it is wanted again goes on from where it is.
        if (command.field == FieldMode::Regulated && m_state.fieldReference == 0)
            m_fieldController.Preset(settings.FieldGainUnit() * m_motor.GetFieldCurrent());
        const double error = reference * settings.ratedFieldCurrent - m_motor.GetFieldCurrent();
        wanted = m_fieldController.Step(error, kStep, settings.field, settings.exciterReverses ? -limit : 0, limit);
    }
    m_state.fieldReference = reference;
    return m_exciter.Step(wanted, kStep, kExciterLag);
}

double CMotorControl::ReferenceFor(const MotorCommand& command, const DriveSettings& settings) {
    double wanted = command.current;
    m_state.torqueReference = 0;
    m_state.torqueLimited = false;
    m_state.speedReference = 0;
    if (m_mode == ArmatureMode::Speed) {
        const double flux = std::max(kLeastFlux, m_state.flux);
        const double rated = settings.ratedCurrent / flux;
        const bool reversed = m_motor.GetFieldCurrent() < 0; // the other bridge gives the torque
        const double high = reversed ? -settings.currentLow : settings.currentHigh;
        const double low = reversed ? -settings.currentHigh : settings.currentLow;
        const bool borrowed = command.guide == SpeedGuide::Emf && settings.speedSource != SpeedSource::Emf;
        m_state.torqueReference =
            m_speedControl.Step(kStep, command.speed, m_state.signals.used, high / rated, low / rated, settings,
                                borrowed ? settings.emfFilter : 0, command.torque);
        m_state.speedReference = m_speedControl.GetReferenceUsed();
        m_state.torqueLimited = m_speedControl.IsLimited();
        wanted = std::copysign(m_state.torqueReference * rated, m_state.torqueReference * m_motor.GetFieldCurrent());
    }
    m_state.currentWanted = wanted;
    wanted = std::clamp(wanted, settings.currentLow, std::max(settings.currentLow, settings.currentHigh));
    const double step = settings.currentSlope * kStep;
    m_slope += std::clamp(wanted - m_slope, -step, step);
    return m_slope;
}

/// True while no bridge may fire because the current passes from one to the other.
bool CMotorControl::HandsOver(double reference, const DriveSettings& settings) {
    if (m_pause > 0) {
        m_pause -= kStep;
        return m_pause > 0;
    }
    // A current with gaps ends by itself when no valve is fired any more.
    const bool ends = !m_state.continuous || std::abs(m_motor.GetArmatureCurrent()) <= settings.zeroCurrent;
    const bool wrong = reference * m_bridge < 0 && std::abs(reference) > settings.zeroCurrent / 2;
    if (!wrong || !ends)
        return false;
    m_bridge = -m_bridge;
    m_pause = settings.reversalDelay;
    StartBridge(settings);
    return m_pause > 0;
}

/// A bridge begins at its largest firing angle, where no EMF can drive a current against it.
void CMotorControl::StartBridge(const DriveSettings& settings) {
    m_currentController.Preset(settings.emfForward ? 0 : m_bridge * m_motor.GetEmf());
    m_expected.Preset(0);
    m_cosine = settings.cosineLow;
    m_firing.Preset(m_cosine);
}

/// Modulus optimum on the armature circuit. Where the current has gaps, the firing angle is taken from the converter's
/// own curve for the current that is wanted, so that the loop keeps its speed.
void CMotorControl::StepCurrent(double reference, double fieldVoltage, const DriveSettings& settings) {
    if (HandsOver(reference, settings)) {
        StepOpen(fieldVoltage);
        return;
    }
    m_state.currentReference = reference;
    const double target = std::max(0.0, m_bridge * reference);
    const double current = m_bridge * m_motor.GetArmatureCurrent();
    const double ideal = m_converter.GetIdealVoltage();
    // The converter synchronises to the terminals themselves: no parameter stands between it and the EMF.
    const double forward = settings.emfForward ? m_bridge * m_motor.GetEmf() : 0;
    const double wanted = m_currentController.Step(target - current, kStep, settings.current,
                                                   ideal * settings.cosineLow, ideal * settings.cosineHigh, forward);
    m_expected.Step(target, kStep, 2 * kConverterLag);
    m_cosine = m_converter.CosineFor(wanted, m_expected.GetOutput(), settings.inductance, m_cosine);
    m_cosine = std::clamp(m_cosine, settings.cosineLow, std::max(settings.cosineLow, settings.cosineHigh));
    const double cosine = m_firing.Step(m_cosine, kStep, kConverterLag);
    const ConverterVoltage given =
        m_converter.MeanVoltage(cosine, std::max(0.0, current), m_motor.GetData().armatureInductance);
    m_state.cosine = cosine;
    m_state.continuous = given.continuous && current > 0;
    m_state.bridge = m_bridge;
    Feed({m_bridge > 0 ? Conduction::Forward : Conduction::Backward, m_bridge * given.voltage, given.slope},
         fieldVoltage);
}

/// The line voltage's sine itself, from the firing until the current is back at 0.
void CMotorControl::StepPulse(double firingAngle, double fieldVoltage) {
    m_state.cosine = std::cos(firingAngle);
    const double width = m_converter.GetAngularFrequency() * kStep;
    const double voltage = m_converter.GetPeak() * std::sin(m_pulseAngle + width / 2);
    if (m_pulseOver || m_pulseAngle > 2 * std::numbers::pi) {
        m_pulseOver = true;
        StepOpen(fieldVoltage);
        return;
    }
    m_pulseAngle += width;
    m_state.bridge = 1;
    Feed({Conduction::Forward, voltage, 0}, fieldVoltage);
    m_pulseOver = m_motor.GetArmatureCurrent() <= 0;
}

/// The converter gives nothing; the motor drives a current through a resistor where there is one.
void CMotorControl::StepOpen(double fieldVoltage, double brakeResistance) {
    m_state.bridge = 0;
    m_state.continuous = false;
    m_state.currentReference = m_state.currentWanted = 0;
    if (m_mode == ArmatureMode::Blocked || m_mode == ArmatureMode::Braking)
        m_state.torqueReference = m_state.speedReference = 0;
    ArmatureSupply supply;
    if (brakeResistance > 0)
        supply = {Conduction::Both, -brakeResistance * m_motor.GetArmatureCurrent(), -brakeResistance};
    Feed(supply, fieldVoltage);
}

void CMotorControl::Feed(ArmatureSupply supply, double fieldVoltage) {
    const double before = m_motor.GetArmatureCurrent();
    m_motor.Step(kStep, supply, fieldVoltage);
    const double after = m_motor.GetArmatureCurrent();
    // Without current the terminals show the EMF.
    m_state.armatureVoltage = after == 0 ? m_motor.GetEmf() : supply.voltage + supply.slope * (after - before);
    m_state.fieldVoltage = fieldVoltage;
}

void CMotorControl::Observe(SpeedGuide guide, const DriveSettings& settings) {
    m_state.armatureCurrent = m_motor.GetArmatureCurrent();
    m_state.fieldCurrent = m_motor.GetFieldCurrent();
    m_state.speed = m_motor.GetSpeed();
    m_state.flux = settings.fluxOfField(std::abs(m_state.fieldCurrent) / settings.ratedFieldCurrent);
    m_emf.Step(kStep, m_state.armatureVoltage, m_state.armatureCurrent,
               std::copysign(m_state.flux, m_state.fieldCurrent), settings);
    m_state.emf = m_emf.GetEmf();
    const double chance = m_feedback.noise > 0 ? std::uniform_real_distribution(-1.0, 1.0)(m_random) : 0;
    m_state.signals = MeasureSpeed(m_state.speed, m_emf.GetSpeed(), m_feedback, settings, chance);
    if (guide == SpeedGuide::Emf)
        m_state.signals.used = m_state.signals.emf;
    m_state.torque = m_motor.GetTorque();
}

void CMotorControl::Rest(double seconds) {
    m_motor.Rest(seconds);
    m_emf.Reset();
    m_exciter.Preset(0);
    m_fieldController.Preset(0);
    m_state = {};
    m_mode = ArmatureMode::Blocked;
    m_state.fieldCurrent = m_motor.GetFieldCurrent();
}

} // namespace krt550
