#include "drive/control_word.h"
#include "drive/fault_codes.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "tests/drive/drive_sample.h"

namespace krt550 {
namespace {

constexpr double kFollows = 25; ///< a motor follows its reference so far behind [rpm]

class SimulatedDriveTest : public testing::Test {
protected:
    double Speed() { return m_drive.GetRegisters().GetNumber(reg::kSpeed, -1); }
    quint16 Status() {
        quint16 word = 0;
        EXPECT_TRUE(m_drive.ReadRegister(reg::kStatusWord, word));
        return word;
    }
    void Seconds(double seconds) {
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
    std::string Error() const { return m_drive.GetLastError().toStdString(); }

    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    CSimulatedDrive m_drive{test::SampleDrive()};
};

TEST_F(SimulatedDriveTest, RunsUpAndDownInTheRampTimes) {
    EXPECT_EQ(Status(), 0b1000110001) << "ready, no stop active, control requested";
    Run(1500);
    EXPECT_FALSE(m_drive.IsStopped());
    Seconds(2);
    const double start = Speed();
    EXPECT_GT(start, 0) << "the field is there";
    Seconds(5);
    EXPECT_NEAR(Speed(), start + 750, kFollows);
    EXPECT_NEAR(m_drive.GetRegisters().GetNumber(reg::kSpeedReference, 0), Speed(), kFollows);
    EXPECT_NEAR(m_drive.GetRegisters().GetNumber(reg::kSpeedEmf, 0), Speed(), 2 * kFollows);
    Seconds(15);
    EXPECT_NEAR(Speed(), 1500, 1);
    EXPECT_EQ(Status(), 0b10100110111) << "in operation, at its reference, above the threshold";

    ASSERT_TRUE(m_drive.StopMotor());
    Seconds(8);
    EXPECT_TRUE(m_drive.IsStopped());
    EXPECT_TRUE(m_drive.IsContactorClosed()) << "for the next start";
    ASSERT_TRUE(m_drive.StartMotor());
    Seconds(15);
    ASSERT_TRUE(m_drive.OpenContactor());
    Seconds(4.8);
    EXPECT_NE(Status() & status::kOperationEnabled, 0) << "a motor that is still driven denies the next start";
    EXPECT_FALSE(m_drive.IsStopped());
    EXPECT_TRUE(m_drive.IsContactorClosed()) << "opens without current only";
    Seconds(1);
    EXPECT_EQ(Speed(), 0);
    EXPECT_TRUE(m_drive.IsStopped());
    EXPECT_FALSE(m_drive.IsContactorClosed());
    ASSERT_TRUE(m_drive.CloseContactor());
    Seconds(5);
    EXPECT_TRUE(m_drive.IsStopped()) << "the start command went with the contactor";
}

TEST_F(SimulatedDriveTest, CommandsNeedLocalControlAndTheirOrder) {
    for (const auto command :
         {&CSimulatedDrive::CloseContactor, &CSimulatedDrive::OpenContactor, &CSimulatedDrive::StartMotor,
          &CSimulatedDrive::StopMotor, &CSimulatedDrive::ReleaseLocalControl}) {
        EXPECT_FALSE((m_drive.*command)());
        EXPECT_EQ(Error(), "Take local control of the drive first.");
    }
    ASSERT_TRUE(m_drive.TakeLocalControl());
    EXPECT_FALSE(m_drive.StartMotor());
    EXPECT_EQ(Error(), "Close the main contactor first.");
    ASSERT_TRUE(m_drive.CloseContactor());
    Seconds(5);
    EXPECT_EQ(m_drive.GetState(), DriveState::On) << "a refused start is not made up for later";
}

TEST_F(SimulatedDriveTest, ReferenceStaysWithinTheSpeedLimits) {
    ASSERT_TRUE(m_drive.TakeLocalControl());
    for (const double refused : {2000.1, -1500.1, double(NAN), double(INFINITY)}) {
        EXPECT_FALSE(m_drive.SetSpeedReference(refused)) << refused;
        EXPECT_NE(Error().find("speed limits"), std::string::npos);
    }
    for (const double taken : {2000.0, -1500.0, 0.0})
        EXPECT_TRUE(m_drive.SetSpeedReference(taken)) << taken;
    ASSERT_TRUE(m_drive.SetSpeedReference(2000));
    ASSERT_TRUE(m_drive.WriteRegister(reg::kSpeedMaximum, 1200));
    EXPECT_EQ(m_drive.GetSpeedReference(), 1200) << "limits that come closer hold at once";
}

TEST_F(SimulatedDriveTest, TripCoastsAndIsRememberedUntilItIsReset) {
    Run(900);
    Seconds(10);
    m_drive.SetTripCause(104);
    EXPECT_EQ(Status() & (status::kFault | status::kInhibited), status::kFault | status::kInhibited);
    EXPECT_FALSE(m_drive.IsContactorClosed());
    Seconds(1);
    EXPECT_NEAR(Speed(), 625, 225) << "coasts";
    ASSERT_TRUE(m_drive.GetFaults().GetFields());
    EXPECT_EQ(m_drive.GetFaults().GetFields()->at(7).value, 900U) << "the speed at the moment of the trip";
    EXPECT_FALSE(m_drive.CloseContactor());
    EXPECT_NE(Error().find("fault 104 (field current lost)"), std::string::npos) << Error();
    EXPECT_FALSE(m_drive.ResetFault()) << "its cause is still there";
    m_drive.SetTripCause(0);
    EXPECT_EQ(m_drive.GetFaults().GetActive(), 104) << "a fault stays until it is reset";
    EXPECT_TRUE(m_drive.ResetFault());
    EXPECT_FALSE(m_drive.CloseContactor());
    EXPECT_NE(Error().find("inhibited"), std::string::npos);
    EXPECT_TRUE(m_drive.OpenContactor() && m_drive.CloseContactor());
}

TEST_F(SimulatedDriveTest, WhatDoesNotSwitchFailsTheCommandAndThenTrips) {
    ASSERT_TRUE(m_drive.TakeLocalControl());
    m_drive.GetContactor().SetDefect(ContactorDefect::Stuck);
    EXPECT_FALSE(m_drive.CloseContactor());
    EXPECT_EQ(Error(), "The main contactor does not close.");
    EXPECT_FALSE(m_drive.StartMotor());
    Seconds(0.5);
    EXPECT_EQ(m_drive.GetFaults().GetActive(), 0);
    Seconds(1);
    EXPECT_EQ(m_drive.GetFaults().GetActive(), kFaultMainContactor);

    m_drive.GetContactor().SetDefect(ContactorDefect::None);
    ASSERT_TRUE(m_drive.ResetFault());
    ASSERT_TRUE(m_drive.OpenContactor());
    ASSERT_TRUE(m_drive.CloseContactor());
    m_drive.SetStartRefused(true);
    EXPECT_FALSE(m_drive.StartMotor());
    EXPECT_NE(Error().find("interlock"), std::string::npos);
    m_drive.GetContactor().SetDefect(ContactorDefect::Welded);
    EXPECT_FALSE(m_drive.OpenContactor());
    EXPECT_EQ(Error(), "The main contactor does not open.");
    EXPECT_TRUE(m_drive.IsContactorClosed());
    Seconds(2);
    EXPECT_EQ(m_drive.GetFaults().GetActive(), kFaultMainContactor);
}

} // namespace
} // namespace krt550
