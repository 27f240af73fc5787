#include "drive/simulated_drive.h"

#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "drive/registers.h"
#include "hostlib/tolvbo32/clock.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace krt550 {
namespace {

constexpr qint64 kSlice = 10;                  ///< the drive's logic looks at its inputs this often [ms]
constexpr double kRpm = 30 / std::numbers::pi; ///< per rad/s

} // namespace

CSimulatedDrive::CSimulatedDrive(std::vector<ParameterDescription> descriptions, const MotorSet* motor)
    : m_registers(std::move(descriptions)), m_set(motor ? *motor : DefaultMotorSet()), m_mains(m_set.mains),
      m_control(DataOf(m_set)), m_lastAdvance(CClock::Current().Now()) {
    if (motor)
        ApplyNamePlate(*motor, m_registers);
    m_exciter.type = m_registers.GetWord(reg::kExciterFound, m_registers.GetWord(reg::kExciterUsed));
    GetMotor().SetBrake(m_set.load);
    GetMotor().SetLoad(m_set.hanging);
    Settle();
}

void CSimulatedDrive::Advance() {
    AdvanceTo(CClock::Current().Now());
}

void CSimulatedDrive::AdvanceTo(qint64 now) {
    // Another clock may have taken the place of the one before: time never runs backwards for the drive.
    qint64 left = std::max<qint64>(0, now - m_lastAdvance);
    m_lastAdvance = now;
    ReadParameters();
    while (left > 0) {
        // Nothing moves in a resting drive; one slice does for any time.
        const qint64 slice = IsResting() && IsNeighbourResting() ? left : std::min(left, kSlice);
        left -= slice;
        Pass(slice);
        Exchange(slice, now - left);
    }
    ShowState();
}

bool CSimulatedDrive::IsResting() const {
    return IsStopped() && !m_contactor.IsClosed() && !IsFieldHeated() && m_contactor.GetAstray() == 0 &&
           m_service.IsIdle() && m_commanders.GetStopReason() == 0 && !m_mains.IsDipping() && m_otherLeft == 0 &&
           m_control.GetMotor().IsAtRest();
}

void CSimulatedDrive::Pass(qint64 milliseconds) {
    const double seconds = static_cast<double>(milliseconds) / 1000;
    m_age += milliseconds;
    ReadParameters();
    std::set<quint16> alarms;
    if (IsResting()) {
        m_control.Rest(seconds);
        m_protection.Rest(seconds, m_levels);
        m_references.Preset(0);
        m_fieldWaited = false;
    } else {
        Integrate(seconds, alarms);
    }
    ListenToCommanders(milliseconds, alarms);
    m_winding.Step(seconds, m_control.GetState().armatureCurrent / m_set.current);
    if (const quint16 trip =
            m_twelvePulse.Step(seconds, m_contactor.IsClosed(), m_control.GetState(), m_settings, m_registers))
        Trip(trip);
    if (m_logic.IsDriving() && m_mains.GetWander() > m_registers.GetNumber(reg::kLargestWander, 10))
        Trip(kFaultSynchronisation);
    ScanTerminals(seconds);
    LookAtField(seconds);
    LookAtSpeed(milliseconds, alarms);
    alarms.merge(m_board.GetFindings().alarms);
    m_faults.SetAlarms(alarms);
    m_mains.Pass(milliseconds);
    if (m_otherLeft > 0 && (m_otherLeft = std::max<qint64>(0, m_otherLeft - milliseconds)) == 0)
        m_places.SetOther(false);
    m_display.Step(m_control.GetState().signals.used, seconds, m_registers.GetNumber(reg::kDisplayFilter, 500) / 1000);
    m_contactor.Wait(milliseconds, m_logic.WantsContactor(Inputs()) == IsContactorAcknowledged());
    SettleLogic();
    constexpr double kDefaultContactorTime = 1000;
    if (static_cast<double>(m_contactor.GetAstray()) >=
        m_registers.GetNumber(reg::kContactorTime, kDefaultContactorTime))
        Trip(kFaultMainContactor);
    LookAtInputs();
    Supervise(seconds);
}

void CSimulatedDrive::ReadParameters() {
    if (m_registers.GetWord(reg::kLoadMacro) != 0)
        LoadMacro();
    const PhaseDefect phases = m_mains.GetPhases();
    m_control.SetMains(m_mains.GetVoltage(), LineInductanceOf(m_set),
                       phases == PhaseDefect::Missing || phases == PhaseDefect::FuseBlown);
    if (std::exchange(m_settingsVersion, m_registers.GetSettingsVersion()) == m_registers.GetSettingsVersion())
        return;
    m_settings = ReadSettings(m_registers, m_set);
    if (m_goesByEmf)
        m_settings.speedSource = SpeedSource::Emf;
    m_levels = ReadTripLevels(m_registers, m_settings);
    m_references.Read(m_registers, BaseSpeed());
    m_board.Read(m_registers);
    m_adapter.Read(m_registers);
    m_fieldHeating = m_registers.GetNumber(reg::kFieldHeating, 0) / 100;
    m_zeroSpeed = m_registers.GetNumber(reg::kZeroSpeed, 0);
    m_zeroSpeedTime = m_registers.GetNumber(reg::kZeroSpeedTime, 0);
}

/// The drive's continuous part, and what is supervised in it. Flattened, because nearly all time goes by in this loop:
/// with the bodies of its calls in it a step costs a fifth less.
[[gnu::flatten]] void CSimulatedDrive::Integrate(double seconds, std::set<quint16>& alarms) {
    const int steps = static_cast<int>(std::lround(seconds / CMotorControl::kStep));
    TakeOrders();
    for (int i = 0; i < steps; ++i) {
        const MotorCommand command = NextCommand();
        m_control.Step(command, m_settings);
        if (m_service.IsRunning())
            m_service.Step(CMotorControl::kStep, m_control.GetState(), m_control.IsPulseOver());
        CheckMotor(command, alarms);
    }
    const CDigitalInputs& inputs = m_board.GetInputs();
    const Findings fans =
        m_fans.Step(seconds, m_contactor.IsClosed(),
                    {inputs.IsGood(InputFunction::MotorFan), inputs.IsGood(InputFunction::ConverterFan)}, m_registers);
    alarms.insert(fans.alarms.begin(), fans.alarms.end());
    if (fans.trip)
        Trip(fans.trip);
}

/// Nothing of this changes from step to step; what happens in one settles the drive, and that takes new orders.
void CSimulatedDrive::TakeOrders() {
    m_orders.driving = m_logic.IsDriving();
    const bool fed = m_contactor.IsClosed() && !m_service.KeepsFieldOff();
    m_orders.braking = m_braking;
    m_orders.field = fed || m_braking ? FieldMode::Regulated : FieldMode::Off; // without field nothing brakes
    m_orders.fieldCurrent = m_fieldDirection.Get();
    if (IsFieldHeated()) {
        m_orders.field = FieldMode::Current;
        m_orders.fieldCurrent *= m_fieldHeating;
    }
    m_orders.ramp = NextRampMode();
    m_orders.target = RampTarget();
    m_orders.torque = m_places.GetPlace() == ControlPlace::Remote && m_orders.ramp == RampMode::Follow;
    m_orders.around = GetSurroundings();
}

MotorCommand CSimulatedDrive::NextCommand() {
    MotorCommand command;
    if (m_protection.IsMainsAwaited()) {
        m_references.Preset(UsedSpeed());
        m_fieldWaited = false;
        return command;
    }
    if (m_service.IsRunning()) {
        m_references.Preset(UsedSpeed());
        m_fieldWaited = true;
        return m_service.GetCommand();
    }
    command.field = m_orders.field;
    command.fieldCurrent = m_orders.fieldCurrent;
    m_fieldWaited = m_orders.driving && (m_fieldWaited || IsFieldThere());
    if (!m_fieldWaited) {
        m_references.Preset(UsedSpeed()); // a motor that still turns is caught where it is
        if (m_orders.braking) {
            command.armature = ArmatureMode::Braking;
            command.resistance = m_set.voltage / m_set.current; // rated current at rated voltage
        }
        return command;
    }
    if (m_fieldDirection.HoldsArmature()) {
        m_references.Preset(UsedSpeed());
        command.armature = ArmatureMode::Current;
        return command;
    }
    m_references.Step(CMotorControl::kStep, m_orders.ramp, m_orders.target);
    command.armature = ArmatureMode::Speed;
    command.speed = m_references.GetOutput() / kRpm;
    DemandTorque(command);
    return command;
}

/// Until the field is there, there is no torque.
bool CSimulatedDrive::IsFieldThere() const {
    constexpr double kThere = 0.8; // of its reference
    const MotorState& state = m_control.GetState();
    const double wanted = std::max(0.05, std::abs(state.fieldReference)) * m_settings.ratedFieldCurrent;
    // A field that has only just been switched on has no reference yet.
    return state.fieldReference != 0 && m_fieldDirection.Get() * state.fieldCurrent >= kThere * wanted;
}

RampMode CSimulatedDrive::NextRampMode() const {
    constexpr quint16 kTorqueLimit = 1;
    const quint16 word = UsedControlWord();
    const bool running = m_logic.GetState() == DriveState::Operation && (word & control::kEnableOperation);
    if (running)
        return !(word & control::kEnableRamp)  ? RampMode::Zero
               : word & control::kUnfreezeRamp ? RampMode::Follow
                                               : RampMode::Hold;
    if (m_commanders.GetStopReason() && m_commanders.StopsAtLimit())
        return RampMode::Zero;
    if (m_logic.GetState() != DriveState::QuickStopping)
        return RampMode::Stop;
    return IsEmergencyStopActive() && m_registers.GetWord(reg::kEmergencyStopMode) == kTorqueLimit ? RampMode::Zero
                                                                                                   : RampMode::Quick;
}

void CSimulatedDrive::Settle() {
    ReadParameters();
    ScanTerminals(0);
    SettleLogic();
    LookAtInputs();
    Supervise(0);
    TakeOrders();
    ShowState();
}

/// Lets the logic come to rest with its inputs as they are.
void CSimulatedDrive::SettleLogic() {
    m_places.LookForNewStart(m_registers);
    const quint16 word = UsedControlWord();
    if ((word & control::kAcknowledge) && !(m_formerControlWord & control::kAcknowledge))
        AcknowledgeFault();
    m_formerControlWord = word;
    const bool driving = m_logic.IsDriving();
    if ((word & control::kOn) && m_logic.GetState() != DriveState::Inhibited && !m_exciter.Serves(m_registers))
        Trip(kFaultExciter);

    bool changed = true;
    while (changed) {
        const DriveState former = m_logic.GetState();
        changed = m_logic.Step(Inputs());
        if (m_logic.GetState() == DriveState::Operation && former == DriveState::On)
            ++m_starts;
        changed = m_contactor.Follow(m_logic.WantsContactor(Inputs())) || changed;
        m_board.Sample(GetPlant(), m_registers); // its acknowledge moves with it
    }
    constexpr quint16 kDynamicBraking = 3;
    const bool begins =
        driving && IsEmergencyStopActive() && m_registers.GetWord(reg::kEmergencyStopMode) == kDynamicBraking;
    m_braking = (m_braking || begins) && !m_logic.IsDriving() && !IsStandstill();
}

} // namespace krt550
