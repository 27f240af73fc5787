#pragma once

namespace krt550 {

struct DriveSettings;

/// Which speed feedback the drive goes by; the numbers of its selector's value list.
enum class SpeedSource { Emf = 0, Encoder = 1, Tacho = 2 };

/// What is mounted at the motor's shaft end.
enum class FeedbackDevice { None, Encoder, Tacho };

/// The mounted device as it really is, defects included.
struct FeedbackEquipment {
    FeedbackDevice device = FeedbackDevice::Encoder;
    double pulses = 1024;       ///< of an encoder, a turn
    double tachoVoltage = 62.4; ///< of a tacho [V] at 1000 rpm: a 60 V machine within its tolerance
    bool broken = false;        ///< gives no signal
    bool reversed = false;      ///< wired the wrong way round
};

/// Speeds as the drive knows them [rad/s].
struct SpeedSignals {
    double emf = 0;
    double encoder = 0;
    double tacho = 0;
    double used = 0; ///< of the chosen source
};

/// What the inputs make of the shaft's true speed; `emf` is the speed by EMF.
SpeedSignals MeasureSpeed(double speed, double emf, const FeedbackEquipment& equipment, const DriveSettings& settings);

} // namespace krt550
