#pragma once

#include "drive/service_run.h"
#include "drive/signals.h"
#include "drive/test_bench.h"

#include <memory>
#include <optional>

namespace krt550 {

class CRegisterFile;

/// What a service mode has to know of the drive around it.
struct ServiceView {
    bool driving = false; ///< the converter drives the motor
    bool started = false; ///< a start command is there
    bool emergencyStop = false;
    quint16 fault = 0;
    ControlPlace place = ControlPlace::Remote;
    double mains = 0;      ///< [V]
    double leastMains = 0; ///< [V]
};

/// The service modes: writing one arms it, starting the motor begins its run. When the run ends, however it does,
/// 99.06 goes back to 0 and 9.11 tells the outcome; 4.24 holds the progress. Modes without a run here keep what is
/// written and leave the motor alone.
class CServiceMode {
public:
    /// 99.06 has been written.
    void Write(quint16 mode, const ServiceView& view, CRegisterFile& registers);
    /// Somebody has read the speed `rpm` off a hand-held tacho. False when it cannot be: the tacho shows `tacho`.
    bool TakeHandTacho(double rpm, double& tacho);
    /// Looks for what begins or ends a run and lets `seconds` of waiting pass.
    void Supervise(double seconds, const ServiceView& view, const DriveSettings& settings,
                   const CSixPulseConverter& converter, CRegisterFile& registers);

    bool IsRunning() const { return m_bench != nullptr; }
    bool IsIdle() const { return m_mode == 0; }
    /// The armed or running mode wants the motor without field.
    bool KeepsFieldOff() const { return m_mode == 1 || m_mode == 2 || m_mode == 9; }
    /// What converter and exciter shall do; needs a run.
    const MotorCommand& GetCommand() const { return m_bench->command; }
    /// Takes in a step; needs a run.
    void Step(double seconds, const MotorState& state, bool pulseOver);
    /// True once after a run has ended: the motor must not go on with the start command of the run.
    bool TakeEnd() { return std::exchange(m_ended, false); }

    /// Defects of the drive's own program: a run stands still and never ends; a mode outlives the stop of its run.
    void SetProgressStuck(bool stuck) { m_stuck = stuck; }
    void SetOutlivesStop(bool outlives) { m_outlivesStop = outlives; }

private:
    void Begin(const ServiceView& view, const DriveSettings& settings, const CSixPulseConverter& converter,
               CRegisterFile& registers);
    void End(quint16 code, CRegisterFile& registers);
    void WriteResults(CRegisterFile& registers);

    quint16 m_mode = 0;
    double m_waiting = 0; ///< since it was armed [s]
    ControlPlace m_place = ControlPlace::Remote;
    std::unique_ptr<CTestBench> m_bench;
    CServiceRun m_run;
    std::optional<quint16> m_outcome;
    int m_progress = 0;
    bool m_ended = false;
    bool m_stuck = false;
    bool m_outlivesStop = false;
};

} // namespace krt550
