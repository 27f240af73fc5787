#include "drive/applied_faults.h"

#include "drive/fault_modes.h"
#include "drive/simulated_drive.h"

#include <iterator>

namespace krt550 {
namespace {

using Kind = FaultModeKind;

double Share(const CFaultModes& modes, Kind kind) {
    return modes.Find(kind).value_or(0) / 100.0;
}

template <class Value> struct Defect {
    Kind kind;
    Value value;
};

/// The value of the first mode that is on; Value::None for none.
template <class Value, std::size_t Count> Value Worst(const CFaultModes& modes, const Defect<Value> (&defects)[Count]) {
    for (const auto& [kind, value] : defects)
        if (modes.Has(kind))
            return value;
    return Value::None;
}

void ApplyToShaft(const CFaultModes& modes, CSimulatedDrive& drive) {
    FeedbackEquipment& feedback = drive.GetFeedback();
    const FeedbackEquipment sound;
    feedback.broken = modes.Has(Kind::FeedbackBroken);
    feedback.reversed = modes.Has(Kind::FeedbackReversed);
    feedback.oneChannel = modes.Has(Kind::EncoderChannel);
    feedback.noise = Share(modes, Kind::TachoNoisy);
    feedback.pulses = modes.Find(Kind::EncoderPulses).value_or(static_cast<quint32>(sound.pulses));
    const auto voltage = modes.Find(Kind::TachoVoltage);
    feedback.tachoVoltage = voltage ? *voltage : sound.tachoVoltage;

    CDcMotor& motor = drive.GetMotor();
    const MotorSet& set = drive.GetMotorSet();
    motor.SetFieldBroken(modes.Has(Kind::FieldBroken));
    motor.SetArmatureBroken(modes.Has(Kind::ArmatureBroken));
    motor.SetSwapped(modes.Has(Kind::FieldSwapped) != modes.Has(Kind::ArmatureSwapped)); // both together cancel
    motor.SetLocked(modes.Has(Kind::MotorLocked));
    motor.SetBrake(set.load + Share(modes, Kind::Load) * set.GetRatedTorque());
    motor.SetLoad(set.hanging + Share(modes, Kind::HangingLoad) * set.GetRatedTorque());
}

} // namespace

void ApplyFaultModes(const CFaultModes& modes, CSimulatedDrive& drive) {
    constexpr Defect<ContactorDefect> kContactor[] = {{Kind::ContactorStuck, ContactorDefect::Stuck},
                                                      {Kind::ContactorDrops, ContactorDefect::Drops},
                                                      {Kind::ContactorWelded, ContactorDefect::Welded}};
    constexpr Defect<PhaseDefect> kPhases[] = {{Kind::PhaseMissing, PhaseDefect::Missing},
                                               {Kind::PhaseOrder, PhaseDefect::Order},
                                               {Kind::FuseBlown, PhaseDefect::FuseBlown}};
    drive.Advance(); // what has been until now was under the modes of before
    ApplyToShaft(modes, drive);
    drive.GetContactor().SetDefect(Worst(modes, kContactor));
    drive.GetMains().SetPhases(Worst(modes, kPhases));
    drive.GetMains().SetWander(modes.Find(Kind::MainsUnsteady).value_or(0));
    drive.GetMains().SetLost(modes.Has(Kind::MainsLost));
    drive.GetFans().SetMotorFanLost(modes.Has(Kind::MotorFanLost));
    drive.GetFans().SetConverterFanLost(modes.Has(Kind::ConverterFanLost));
    drive.GetCommanders().SetBusLost(modes.Has(Kind::FieldbusLost));
    drive.GetCommanders().SetLinkLost(modes.Has(Kind::LinkLost));
    SlaveConverter& slave = drive.GetTwelvePulse().GetSlave();
    slave.lost = modes.Has(Kind::SlaveLost);
    slave.bridgeStays = modes.Has(Kind::SlaveBridge);
    slave.weakness = Share(modes, Kind::SlaveWeak);
    drive.GetServiceMode().SetProgressStuck(modes.Has(Kind::ProgressStuck));
    drive.GetServiceMode().SetOutlivesStop(modes.Has(Kind::ModeStays));
    drive.SetEarthCurrent(Share(modes, Kind::EarthFault));
    drive.SetStartRefused(modes.Has(Kind::StartRefused));
    drive.SetEmergencyStop(modes.Has(Kind::EmergencyStop));
    if (!modes.Has(Kind::OtherControlFor) || modes.Has(Kind::OtherControl))
        drive.SetOtherControl(modes.Has(Kind::OtherControl));
    drive.SetTripCause(static_cast<quint16>(modes.Find(Kind::Trip).value_or(0)));
    drive.Settle();
}

void BeginFaultMode(const FaultMode& mode, CSimulatedDrive& drive) {
    if (mode.kind == Kind::MainsDip)
        drive.GetMains().Dip(mode.number);
    if (mode.kind == Kind::OtherControlFor)
        drive.SetOtherControlFor(mode.number);
    drive.Settle();
}

} // namespace krt550
