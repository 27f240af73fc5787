#pragma once

#include "drive/motor_sets.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <gtest/gtest.h>

#include "drive/service_run.h"

#include <functional>

namespace krt550::test {

inline const std::vector<ParameterDescription>& WholeDescription() {
    static const std::vector<ParameterDescription> whole = [] {
        QStringList errors;
        const auto read = ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors);
        EXPECT_TRUE(read) << errors.join(QLatin1Char('\n')).toStdString();
        return read.value_or(std::vector<ParameterDescription>());
    }();
    return whole;
}

/// A drive with all its registers and one of the motors, and the tool at its other end, on a stepped clock.
class WholeDrive {
public:
    explicit WholeDrive(const char* motor) : m_drive(WholeDescription(), FindMotorSet(QString::fromLatin1(motor))) {}

    CSimulatedDrive& Drive() { return m_drive; }
    CDcMotor& Motor() { return m_drive.GetMotor(); }
    double Value(quint16 reg) { return m_drive.GetRegisters().GetNumber(reg, -1); }
    void SetValue(quint16 reg, double shown) { m_drive.GetRegisters().SetNumber(reg, shown); }

    /// The armature's data as an identification would have left them: the speed by EMF is right from the start.
    void KnowArmature() {
        SetValue(reg::kArmatureResistance, Motor().GetData().armatureResistance * 1000);
        SetValue(reg::kArmatureInductance, Motor().GetData().armatureInductance * 1000);
    }

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

    /// Runs a service mode as the tool does; `look` is called in every cycle. Gives the outcome.
    int Tune(quint16 mode, const std::function<void()>& look = {}) {
        EXPECT_TRUE(m_drive.WriteRegister(reg::kServiceMode, mode));
        EXPECT_TRUE(m_drive.TakeLocalControl());
        m_drive.CloseContactor();
        m_drive.StartMotor();
        for (int cycle = 0; cycle < 5001 && Value(reg::kServiceMode) != 0; ++cycle)
            Seconds(0.05, look);
        EXPECT_EQ(Value(reg::kServiceMode), 0) << "the run does not end";
        m_drive.StopMotor();
        m_drive.OpenContactor();
        return static_cast<int>(Value(reg::kDiagnosis));
    }

private:
    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    CSimulatedDrive m_drive;
};

} // namespace krt550::test
