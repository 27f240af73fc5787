#pragma once

namespace krt550 {

struct DriveSettings;

/// Which speed feedback the drive goes by; the numbers of its selector's value list.
enum class SpeedSource { Emf = 0, Encoder = 1, Tacho = 2 };

/// Which edges of which channels of an encoder count; the numbers of 50.02.
enum class EncoderEvaluation { RisingA = 0, BothEdgesA = 1, AllEdges = 2, DirectionByB = 3 };

/// What is mounted at the motor's shaft end.
enum class FeedbackDevice { None, Encoder, Tacho };

/// The mounted device as it really is, defects included.
struct FeedbackEquipment {
    FeedbackDevice device = FeedbackDevice::Encoder;
    double pulses = 1024;       ///< of an encoder, a turn
    double tachoVoltage = 62.4; ///< of a tacho [V] at 1000 rpm: a 60 V machine within its tolerance
    bool broken = false;        ///< gives no signal
    bool reversed = false;      ///< wired the wrong way round
    bool oneChannel = false;    ///< channel B of an encoder is missing
    double noise = 0;           ///< on a tacho's signal, of the signal either way
};

/// Speeds as the drive knows them [rad/s].
struct SpeedSignals {
    double emf = 0;
    double encoder = 0;
    double tacho = 0;
    double used = 0; ///< of the chosen source
};

/// What the inputs make of the shaft's true speed; `emf` is the speed by EMF, `chance` from -1 to 1 where in its spread
/// a noisy signal is.
SpeedSignals MeasureSpeed(double speed, double emf, const FeedbackEquipment& equipment, const DriveSettings& settings,
                          double chance = 0);

} // namespace krt550
