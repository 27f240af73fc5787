#include "drive/speed_feedback.h"

#include "drive/drive_settings.h"

#include <cmath>

namespace krt550 {
namespace {

/// What the chosen edges tell: channel A alone knows no direction; with all edges of both, a missing channel makes
/// every edge of the other one undo the last.
double Evaluated(double speed, const FeedbackEquipment& equipment, const DriveSettings& settings) {
    const bool alone = settings.encoderEvaluation == EncoderEvaluation::RisingA ||
                       settings.encoderEvaluation == EncoderEvaluation::BothEdgesA;
    if (equipment.oneChannel && settings.encoderEvaluation == EncoderEvaluation::AllEdges)
        return 0;
    return alone || equipment.oneChannel ? std::abs(speed) : speed;
}

} // namespace

SpeedSignals MeasureSpeed(double speed, double emf, const FeedbackEquipment& equipment, const DriveSettings& settings,
                          double chance) {
    SpeedSignals signals;
    signals.emf = emf;
    const double signal = equipment.broken ? 0 : equipment.reversed ? -speed : speed;
    if (equipment.device == FeedbackDevice::Encoder)
        signals.encoder = Evaluated(signal, equipment, settings) * equipment.pulses / settings.encoderPulses;
    else if (equipment.device == FeedbackDevice::Tacho)
        signals.tacho = signal * (1 + equipment.noise * chance) * equipment.tachoVoltage / settings.tachoVoltage *
                        settings.tachoAdjust;
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
