#include "drive/simulated_host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvcom32/communication_facade.h"
#include "tests/drive/drive_sample.h"

namespace krt550 {
namespace {

class SimulatedHostDriveTest : public testing::Test {
protected:
    void Mode(const char* text) {
        QString error;
        ASSERT_TRUE(m_host.SetFaultMode(QString::fromLatin1(text), error)) << error.toStdString();
    }
    CParameter* Find(const char* reg) {
        CParameterGroup* root = nullptr;
        return m_host.GetParameterRoot(&root) ? root->FindChildByRegister(QString::fromLatin1(reg)) : nullptr;
    }
    quint16 ReadRecord() {
        quint32 header = 0;
        quint32 count = 39;
        const FaultBufferRequest request;
        return m_host.ReadFaultBuffer(header, &request, &count, m_record);
    }
    std::string Error() const { return m_host.GetLastErrorText().toStdString(); }

    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    CSimulatedHostDrive m_host{test::SampleDrive(), QStringLiteral("C:\\Wizard\\KRT550Wizard")};
    QByteArray m_record;
};

TEST_F(SimulatedHostDriveTest, StateIsWhatTheDriveAnsweredLast) {
    EXPECT_EQ(m_host.GetStatusWord(), kStatusStopped);
    ASSERT_TRUE(m_host.TakeLocalControl());
    EXPECT_TRUE(m_host.IsLocalControlActive());
    EXPECT_TRUE(m_host.CheckCancelCondition());
    ASSERT_TRUE(m_host.SetReference(QStringLiteral(" 1200,5 ")));
    EXPECT_EQ(m_host.GetReference().toStdString(), "1200.5");
    ASSERT_TRUE(m_host.CloseContactor());
    ASSERT_TRUE(m_host.StartMotor());
    EXPECT_EQ(m_host.GetStatusWord(),
              host_status::kContactorClosed | host_status::kRunning | host_status::kLocalControl);
    m_clock.Sleep(5000);
    ASSERT_TRUE(m_host.StopMotor());
    m_clock.Sleep(60000);
    EXPECT_EQ(m_host.GetStatusWord() & kStatusStopped, 0U) << "nobody has asked the drive since";
    ASSERT_TRUE(m_host.RefreshState());
    EXPECT_EQ(m_host.GetStatusWord() & kStatusStopped, kStatusStopped);

    Mode("other-control");
    EXPECT_TRUE(m_host.IsLocalControlActive());
    m_host.RefreshState();
    EXPECT_FALSE(m_host.IsLocalControlActive());
    EXPECT_FALSE(m_host.TakeLocalControl());
    EXPECT_EQ(Error(), "Another control place holds the drive.");
}

TEST_F(SimulatedHostDriveTest, ReferenceTextsThatAreNoneAreRefused) {
    ASSERT_TRUE(m_host.TakeLocalControl());
    ASSERT_TRUE(m_host.SetReference(QStringLiteral("-100")));
    for (const char* text : {"", "fast", "12 rpm", "nan", "inf", "99999"}) {
        EXPECT_FALSE(m_host.SetReference(QString::fromLatin1(text))) << text;
        EXPECT_FALSE(Error().empty()) << text;
    }
    EXPECT_EQ(m_host.GetReference().toStdString(), "-100");
}

TEST_F(SimulatedHostDriveTest, DeadLinkFailsEverythingUntilItIsBack) {
    CParameter* speed = Find("104");
    CParameter* mode = Find("9906");
    ASSERT_TRUE(speed && mode);
    ASSERT_TRUE(m_host.TakeLocalControl());
    ASSERT_TRUE(m_host.SetReference(QStringLiteral("400")));
    m_host.GetDrive().ResetCounters();
    Mode("no-answer");

    EXPECT_FALSE(speed->ReadFromDrive());
    EXPECT_EQ(speed->GetLastError(0).toStdString(),
              "Reading parameter 1.04 Speed failed: The drive did not answer in time.");
    EXPECT_FALSE(mode->WriteToDrive(0));
    EXPECT_EQ(ReadRecord(), quint16(CommunicationError::Timeout));
    for (const bool answer : {m_host.RefreshState(), m_host.CloseContactor(), m_host.StartMotor(), m_host.StopMotor(),
                              m_host.OpenContactor(), m_host.ReleaseLocalControl(), m_host.ResetFault(),
                              m_host.SetReference(QStringLiteral("1")), m_host.CheckDiagnosisCondition()})
        EXPECT_FALSE(answer);
    EXPECT_EQ(Error(), "The drive did not answer in time.");
    EXPECT_TRUE(m_host.IsLocalControlActive()) << "last known";
    EXPECT_EQ(m_host.GetReference().toStdString(), "400");
    const DriveCounters& told = m_host.GetDrive().GetCounters();
    EXPECT_EQ(told.motorStarts + told.contactorCloses + told.resets + told.localReleases, 0)
        << "nothing reached the drive";

    m_host.ClearFaultModes();
    EXPECT_TRUE(speed->ReadFromDrive());
    EXPECT_TRUE(m_host.ReleaseLocalControl());
    Mode("missing:104");
    EXPECT_FALSE(Find("104") || speed->ReadFromDrive()) << "what is held from before is still an object";
}

TEST_F(SimulatedHostDriveTest, LateRepliesTakeTheirTimeOnTheClock) {
    CParameter* mode = Find("9906");
    ASSERT_TRUE(mode->SetValue(1, false));
    Mode("late-answer:300");
    EXPECT_TRUE(mode->WriteToDrive(0));
    EXPECT_EQ(m_clock.Now(), 300);
    Mode("late-answer:5000");
    ASSERT_TRUE(mode->SetValue(2, false));
    EXPECT_FALSE(mode->WriteToDrive(0)) << "too late: given up";
    EXPECT_EQ(m_clock.Now(), 2300);
    EXPECT_EQ(m_host.GetDrive().GetRegisters().GetWord(reg::kServiceMode), 2) << "but the drive has got it";
    EXPECT_FALSE(mode->ReadFromDrive());
    EXPECT_EQ(mode->GetActualValue(), 1);
}

TEST_F(SimulatedHostDriveTest, EveryThirdReplyIsLostAndTheDriveHasDoneItAllTheSame) {
    Mode("reply-lost:3");
    ASSERT_TRUE(m_host.TakeLocalControl());
    ASSERT_TRUE(m_host.RefreshState());
    EXPECT_FALSE(m_host.CloseContactor());
    EXPECT_TRUE(m_host.GetDrive().IsContactorClosed());
    EXPECT_TRUE(m_host.RefreshState() && m_host.RefreshState() && !m_host.RefreshState());
}

TEST_F(SimulatedHostDriveTest, FaultRecordComesCompleteShortTruncatedOrNotAtAll) {
    EXPECT_EQ(ReadRecord(), 0);
    EXPECT_EQ(m_record, QByteArray("\x0a", 1) + QByteArray(kFaultRecordSize - 1, '\0')) << "no fault yet: no values";
    Mode("trip:104");
    ASSERT_EQ(ReadRecord(), 0);
    const QByteArray complete = m_record;
    EXPECT_EQ(complete.size(), kFaultRecordSize);
    EXPECT_EQ(complete[0], 10);
    EXPECT_EQ(complete[15], 104);
    EXPECT_EQ(m_host.GetStatusWord() & host_status::kFault, 0U);
    m_host.RefreshState();
    EXPECT_EQ(m_host.GetStatusWord() & host_status::kFault, host_status::kFault);

    Mode("short-record");
    ASSERT_EQ(ReadRecord(), 0);
    EXPECT_EQ(m_record, QByteArray("\x03", 1) + complete.mid(1, kShortFaultRecordSize - 1));
    m_host.ClearFaultMode({FaultModeKind::ShortRecord, 0});
    for (const int bytes : {0, 21, 74}) {
        m_host.SetFaultMode({FaultModeKind::TruncatedRecord, static_cast<quint32>(bytes)});
        ASSERT_EQ(ReadRecord(), 0);
        EXPECT_EQ(m_record.mid(1), complete.left(bytes).mid(1));
        EXPECT_EQ(m_record.startsWith('\x0a'), bytes == kFaultRecordSize) << bytes;
    }
    const QByteArray before = m_record;
    Mode("record-error:3");
    EXPECT_EQ(ReadRecord(), 3);
    EXPECT_EQ(m_record, before);

    m_host.ClearFaultModes();
    EXPECT_TRUE(m_host.ResetFault()) << "the cause went with the fault modes";
    ASSERT_TRUE(m_host.TakeLocalControl() && m_host.CloseContactor() && m_host.StartMotor());
    m_host.GetDrive().GetMains().SetVoltage(0);
    m_clock.Sleep(1000);
    ASSERT_EQ(ReadRecord(), 0);
    EXPECT_EQ(m_record[15], 103) << "of the moment of the call";
}

} // namespace
} // namespace krt550
