#pragma once

#include "drive/applied_faults.h"
#include "drive/fault_modes.h"
#include "drive/motor_sets.h"
#include "drive/registers.h"
#include "drive/service_run.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "tests/support/shipped_drive.h"

namespace krt550::test {

inline const std::vector<ParameterDescription>& WholeDescription() {
    static const std::vector<ParameterDescription> whole = ShippedParameters();
    return whole;
}

/// A drive with all its registers and one of the motors, and the tool at its other end, on a stepped clock.
class WholeDrive {
public:
    explicit WholeDrive(const char* motor) : m_drive(WholeDescription(), FindMotorSet(QString::fromLatin1(motor))) {}

    explicit WholeDrive(const MotorSet& motor) : m_drive(WholeDescription(), &motor) {}

    CSimulatedDrive& Drive() { return m_drive; }
    CDcMotor& Motor() { return m_drive.GetMotor(); }
    double Value(quint16 reg) { return m_drive.GetRegisters().GetNumber(reg, -1); }
    void SetValue(quint16 reg, double shown) { m_drive.GetRegisters().SetNumber(reg, shown); }

    /// The armature's data as an identification would have left them: the speed by EMF is right from the start.
    void KnowArmature() {
        SetValue(reg::kArmatureResistance, Motor().GetData().armatureResistance * 1000);
        SetValue(reg::kArmatureInductance, Motor().GetData().armatureInductance * 1000);
    }

    /// Sets registers and switches fault modes on: "3009=50 load:95"; also "mains=130" [V] and "hanging=-60" [Nm].
    void Disturb(const char* words) {
        for (const QString& word : QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts)) {
            const QString name = word.section(u'=', 0, 0);
            const double value = word.section(u'=', 1).toDouble();
            if (name == QLatin1String("mains")) {
                m_drive.GetMains().SetVoltage(value);
            } else if (name == QLatin1String("hanging")) {
                Motor().SetLoad(value);
            } else if (name != word) {
                SetValue(name.toUShort(), value);
            } else {
                QString error;
                const auto mode = ParseFaultMode(word, error);
                ASSERT_TRUE(mode) << error.toStdString();
                m_modes.Add(*mode);
                ApplyFaultModes(m_modes, m_drive);
                BeginFaultMode(*mode, m_drive);
            }
        }
    }

    /// Everything is sound again.
    void Repair() { ApplyFaultModes(m_modes = {}, m_drive); }

    /// Lets time pass while the tool keeps asking.
    void Seconds(double seconds, const std::function<void()>& look = {}) {
        constexpr qint64 kPoll = 50;
        for (auto left = static_cast<qint64>(seconds * 1000); left > 0; left -= kPoll) {
            m_clock.Sleep(std::min(left, kPoll));
            m_drive.Poll();
            if (look)
                look();
        }
    }

    /// Lets time pass in silence.
    void Silence(double seconds) {
        m_clock.Sleep(static_cast<qint64>(seconds * 1000));
        m_drive.Advance();
    }

    /// Local control, contactor closed, motor started.
    void Run(double rpm) {
        ASSERT_TRUE(m_drive.TakeLocalControl());
        ASSERT_TRUE(m_drive.SetSpeedReference(rpm));
        ASSERT_TRUE(m_drive.CloseContactor());
        ASSERT_TRUE(m_drive.StartMotor());
    }

    /// Begins a service mode and waits until its progress has come to a percentage, or for 30 s.
    void Begin(quint16 mode, double progress) {
        EXPECT_TRUE(m_drive.WriteRegister(reg::kServiceMode, mode));
        EXPECT_TRUE(m_drive.TakeLocalControl());
        m_drive.CloseContactor();
        m_drive.StartMotor();
        for (int i = 0; i < 600 && Value(reg::kProgress) < progress; ++i)
            Seconds(0.05);
    }

    /// Runs a service mode as the tool does; `look` is called in every cycle. Gives the outcome.
    int Tune(quint16 mode, const std::function<void()>& look = {}) {
        Begin(mode, 0);
        for (int cycle = 0; cycle < 5001 && Value(reg::kServiceMode) != 0; ++cycle)
            Seconds(0.05, look);
        EXPECT_EQ(Value(reg::kServiceMode), 0) << "the run does not end";
        m_drive.StopMotor();
        m_drive.OpenContactor();
        return static_cast<int>(Value(reg::kDiagnosis));
    }

    /// Runs service modes that succeed, with a rest after each [s].
    void TuneAll(std::initializer_list<quint16> modes, double rest) {
        for (const quint16 mode : modes) {
            ASSERT_EQ(Tune(mode), 0) << mode;
            Seconds(rest);
        }
    }

private:
    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    CSimulatedDrive m_drive;
    CFaultModes m_modes;
};

} // namespace krt550::test
