#include "drive/service_mode.h"

#include "drive/register_file.h"
#include "drive/registers.h"
#include "drive/service_reasons.h"
#include "drive/service_runs.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <numbers>

namespace krt550 {
namespace {

constexpr double kPatience = 30;    ///< from arming to the start [s]
constexpr double kLongestRun = 180; ///< [s]

constexpr quint16 kReversal = 9;
constexpr quint16 kTachoTuning = 14;

struct Mode {
    quint16 number;
    CServiceRun (*run)(CTestBench& bench);
    double longest; ///< [s]
    int endsAt;     ///< progress when the run ends without success: who waits for it must see that it is over
};

constexpr int kStaysWhereItIs = -1;
constexpr double kNoEnd = std::numeric_limits<double>::infinity();

constexpr Mode kModes[] = {
    {1, RunArmature, kLongestRun, kStaysWhereItIs},  {2, RunField, kLongestRun, kStaysWhereItIs},
    {3, RunWeakening, kLongestRun, kStaysWhereItIs}, {4, RunSpeed, kLongestRun, kStaysWhereItIs},
    {5, RunFeedbackTest, kLongestRun, 100},          {kReversal, RunReversal, kLongestRun, kStaysWhereItIs},
    {kTachoTuning, RunTachoTuning, kNoEnd, 101},
};

const Mode* FindMode(quint16 number) {
    const auto* const found = std::ranges::find(kModes, number, &Mode::number);
    return found == std::end(kModes) ? nullptr : found;
}

/// The ratings agree with each other as far as the runs rely on them.
bool IsNamePlatePlausible(const DriveSettings& settings) {
    constexpr double kLeast = 0.002; // missing values are read as 0.001
    return settings.ratedVoltage > kLeast && settings.ratedCurrent > kLeast && settings.ratedMains > kLeast &&
           settings.ratedFieldCurrent > kLeast && settings.ratedFieldVoltage > kLeast &&
           settings.resistance * settings.ratedCurrent < settings.ratedVoltage;
}

} // namespace

void CServiceMode::Write(quint16 mode, const ServiceView& view, CRegisterFile& registers) {
    if (IsRunning() || (m_mode && mode == 0)) {
        // Another mode in the middle of a run ends it as well. Writing 0 is how a reversal test regularly ends.
        const bool regular = m_mode == kReversal && mode == 0 && IsRunning() && m_bench->HasPublished();
        End(regular ? m_outcome.value_or(diagnosis::kNone) : diagnosis::kStopped, registers);
        return;
    }
    m_mode = FindMode(mode) ? mode : quint16{0};
    if (m_mode == kReversal)
        registers.SetWord(reg::kFieldDirection, 0); // what a test before has left
    if (!m_mode)
        return;
    m_waiting = 0;
    m_progress = 0;
    registers.SetNumber(reg::kProgress, 0);
    registers.SetWord(reg::kDiagnosis, diagnosis::kNone);
    if (view.driving)
        End(diagnosis::kDriveRunning, registers);
}

void CServiceMode::Supervise(double seconds, const ServiceView& view, const DriveSettings& settings,
                             const CSixPulseConverter& converter, CRegisterFile& registers) {
    if (IsIdle())
        return;
    const bool running = IsRunning();
    const bool mayBeStopped = running && (m_bench->HasPublished() || m_mode == kTachoTuning);
    m_waiting += m_stuck ? 0 : seconds;
    if (running && m_outlivesStop && !(view.started && view.driving)) {
        m_run = {};
        m_bench.reset();
        m_waiting = 0;
        return;
    }
    const struct {
        bool now;
        quint16 code;
    } ends[] = {
        {m_outcome.has_value(), m_outcome.value_or(0)},
        {view.fault != 0, DiagnosisOfFault(view.fault)},
        {view.emergencyStop, diagnosis::kEmergencyStop},
        {running && view.mains < view.leastMains, diagnosis::kMains},
        {running ? view.place != m_place : view.place == ControlPlace::Other, diagnosis::kOtherPlace},
        {running && !(view.started && view.driving), mayBeStopped ? diagnosis::kNone : diagnosis::kStartWithdrawn},
        {m_waiting > (running ? FindMode(m_mode)->longest : kPatience), diagnosis::kTooLong},
    };
    for (const auto& end : ends) {
        if (end.now) {
            End(end.code, registers);
            return;
        }
    }
    if (!running && view.driving)
        Begin(view, settings, converter, registers);
    if (IsRunning()) {
        constexpr int kDirections[] = {0, 1, -1};
        const quint16 direction = registers.GetWord(reg::kFieldDirection);
        m_bench->fieldDirection = direction < std::size(kDirections) ? kDirections[direction] : 0;
        if (m_bench->TakePublish())
            WriteResults(registers);
        m_progress = std::max(m_progress, std::min(99, m_bench->GetProgress()));
        registers.SetNumber(reg::kProgress, m_progress);
    }
}

void CServiceMode::Begin(const ServiceView& view, const DriveSettings& settings, const CSixPulseConverter& converter,
                         CRegisterFile& registers) {
    if (view.mains < view.leastMains) {
        End(diagnosis::kMains, registers);
        return;
    }
    if (!IsNamePlatePlausible(settings)) {
        End(diagnosis::kNamePlate, registers);
        return;
    }
    m_place = view.place;
    m_waiting = 0;
    const double limit = registers.GetNumber(reg::kSpeedMaximum, settings.baseSpeed * 30 / std::numbers::pi);
    m_bench = std::make_unique<CTestBench>(settings, converter.GetIdealVoltage(), converter.GetPeak(),
                                           converter.GetAngularFrequency(), limit * std::numbers::pi / 30);
    m_run = FindMode(m_mode)->run(*m_bench);
}

void CServiceMode::Step(double seconds, const MotorState& state, bool pulseOver) {
    if (m_outcome || m_stuck)
        return;
    if (!m_bench->Observe(seconds, state, pulseOver)) {
        m_outcome = diagnosis::kTurned;
    } else {
        m_run.Step(seconds);
        if (m_run.IsDone())
            m_outcome = m_run.GetResult();
    }
    // Whoever is done asks for no more torque.
    if (m_outcome)
        m_bench->command.armature = ArmatureMode::Blocked;
}

bool CServiceMode::TakeHandTacho(double rpm, double& tacho) {
    if (!IsRunning() || m_mode != kTachoTuning)
        return true;
    constexpr double kRpm = 30 / std::numbers::pi;
    tacho = m_bench->Now().tachoSpeed * kRpm;
    if (!IsHandTachoPlausible(rpm, tacho))
        return false;
    m_bench->SetHandTacho(rpm / kRpm);
    return true;
}

void CServiceMode::WriteResults(CRegisterFile& registers) {
    for (const auto& [reg, number] : m_bench->GetResults())
        registers.SetNumber(reg, number);
}

void CServiceMode::End(quint16 code, CRegisterFile& registers) {
    if (code == diagnosis::kNone && m_bench)
        code = DiagnosisOfResults(m_bench->GetResults(), registers);
    const int endsAt = FindMode(m_mode)->endsAt;
    if (code == diagnosis::kNone)
        WriteResults(registers);
    if (code == diagnosis::kNone || endsAt != kStaysWhereItIs)
        registers.SetNumber(reg::kProgress, std::max(100, endsAt));
    m_ended = IsRunning();
    m_run = {};
    m_bench.reset();
    m_outcome.reset();
    m_mode = 0;
    registers.SetWord(reg::kDiagnosis, code);
    registers.SetWord(reg::kServiceMode, 0);
}

} // namespace krt550
