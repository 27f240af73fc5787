#pragma once

#include "drive/monotone_curve.h"
#include "drive/pi_controller.h"
#include "drive/six_pulse_converter.h"
#include "drive/speed_feedback.h"

#include <cmath>

namespace krt550 {

class CRegisterFile;
struct MotorSet;

/// The parameters that the closed loops go by, out of the registers, in SI units. The gain registers are relative:
/// - 43.06 armature current: ideal converter voltage (1.35 * 99.10) per rated current (99.03)
/// - 44.02 field current: rated field voltage (99.05) per rated field current (99.11)
/// - 24.03 speed: rated torque per base speed (99.04); rated torque is rated current at full flux
/// - 44.09 EMF: full flux per rated EMF
/// The i-times are the times of the controllers' integral parts in ms.
struct DriveSettings {
    double ratedVoltage = 0;      ///< [V]
    double ratedCurrent = 0;      ///< [A]
    double ratedEmf = 0;          ///< rated voltage less the drop on the armature resistance [V]
    double baseSpeed = 0;         ///< [rad/s]
    double ratedFieldCurrent = 0; ///< [A]
    double ratedFieldVoltage = 0; ///< [V]
    double ratedMains = 0;        ///< [V]
    double fieldVoltageLimit = 0; ///< what the exciter can give: 0.9 of its supply voltage, single-phase bridge [V]
    bool exciterReverses = false; ///< the exciter drives its current both ways
    bool fieldReverses = false;   ///< and is to, by its selector
    bool reversesTurning = false; ///< at any speed
    double reversalTime = 0;      ///< a field may take to reverse [s]
    double reversedLevel = 0;     ///< from which it counts as reversed, relative

    PiSetting current;      ///< [Ohm]
    bool emfForward = true; ///< the EMF is added to the current controller's output
    double inductance = 0;  ///< identified, or a guess from the name plate: 0.3 of the rated impedance at 50 Hz [H]
    double resistance = 0;  ///< identified, or a guess from the name plate: 0.13 of rated voltage per current [Ohm]
    bool resistanceKnown = false; ///< identified or set by hand
    double currentSlope = 0;      ///< of the current reference [A/s]
    double currentHigh = 0;       ///< bridge 1, never more than the converter's nominal current [A]
    double currentLow = 0;        ///< bridge 2, not above 0 [A]
    double cosineHigh = 1;        ///< of the smallest firing angle
    double cosineLow = -1;        ///< of the largest firing angle
    double zeroCurrent = 0;       ///< below this a bridge may hand over [A]
    double reversalDelay = 0;     ///< between two bridges [s]

    PiSetting field;      ///< [Ohm]
    bool weakens = false; ///< the EMF controller sets the flux
    double emfLimit = 0;  ///< [V]
    double leastFlux = 0; ///< relative
    PiSetting emf;        ///< relative
    double emfHigh = 0;   ///< EMF controller limits, relative
    double emfLow = 0;
    CMonotoneCurve fieldOfFlux; ///< relative field current over relative flux
    CMonotoneCurve fluxOfField; ///< its inverse
    double leastField = 0;      ///< below this the field counts as lost, relative

    SpeedSource speedSource = SpeedSource::Emf;
    double encoderPulses = 0; ///< a turn
    EncoderEvaluation encoderEvaluation = EncoderEvaluation::AllEdges;
    double tachoVoltage = 0; ///< [V] at 1000 rpm
    double tachoAdjust = 1;  ///< factor on the tacho's signal

    PiSetting speed;            ///< relative
    double feedbackFilter = 0;  ///< [s]
    double emfFilter = 0;       ///< of the speed by EMF [s]
    double errorFilter = 0;     ///< [s]
    double referenceFilter = 0; ///< as set; the loop's own is never less than its symmetrical optimum needs [s]
    double torqueHigh = 0;      ///< relative
    double torqueLow = 0;

    /// Sum of the speed loop's small lags: current loop (2*Ts) and the filters of the chosen feedback [s].
    double SmallLags() const {
        return 2 * kConverterLag + feedbackFilter + errorFilter + (speedSource == SpeedSource::Emf ? emfFilter : 0);
    }
    /// Relative flux that a relative field current makes, either way round.
    double FluxOf(double share) const { return std::copysign(fluxOfField(std::abs(share)), share); }
    double CurrentGainUnit() const; ///< [Ohm]
    double FieldGainUnit() const;   ///< [Ohm]
};

/// Time constant of the field exciter, half the time between two firings of a single-phase bridge at 50 Hz [s].
inline constexpr double kExciterLag = 0.005;

/// Registers that the drive does not have count with the motor's name plate and with factory settings.
DriveSettings ReadSettings(const CRegisterFile& registers, const MotorSet& motor);

} // namespace krt550
