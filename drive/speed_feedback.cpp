#include "drive/speed_feedback.h"

#include "drive/drive_settings.h"

namespace krt550 {

SpeedSignals MeasureSpeed(double speed, double emf, const FeedbackEquipment& equipment, const DriveSettings& settings) {
    SpeedSignals signals;
    signals.emf = emf;
    const double signal = equipment.broken ? 0 : equipment.reversed ? -speed : speed;
    if (equipment.device == FeedbackDevice::Encoder)
        signals.encoder = signal * equipment.pulses / settings.encoderPulses;
    else if (equipment.device == FeedbackDevice::Tacho)
        signals.tacho = signal * equipment.tachoVoltage / settings.tachoVoltage * settings.tachoAdjust;
    switch (settings.speedSource) {
    case SpeedSource::Emf:
        signals.used = emf;
        break;
    case SpeedSource::Encoder:
        signals.used = signals.encoder;
        break;
    case SpeedSource::Tacho:
        signals.used = signals.tacho;
        break;
    }
    return signals;
}

} // namespace krt550
