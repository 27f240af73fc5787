#include "host/call_log.h"
#include "host/logged_drive.h"
#include "host/logged_link.h"
#include "host/scaled_clock.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvcom32/communication_facade.h"

#include <gtest/gtest.h>

namespace krt550 {
namespace {

/// Does what it is told, or refuses everything.
class CYesNoDrive : public CHostDrive {
public:
    bool answer = true;
    quint16 errorCode = 0;

    quint16 ReadFaultBuffer(quint32&, const FaultBufferRequest*, quint32*, QByteArray& record) override {
        record = QByteArray(26, '\0');
        return errorCode;
    }
    CSAPDriveTexts* GetDriveTexts() override { return nullptr; }
    bool SetReference(const QString&) override { return answer; }
    bool IsLocalControlActive() override { return answer; }
    bool RefreshState() override { return answer; }
    CDriveInfo* GetDriveInfo() override { return nullptr; }
    bool StartMotor() override { return answer; }
    bool StopMotor() override { return answer; }
    bool ResetFault() override { return answer; }
    QString GetReference() override { return QStringLiteral("100"); }
    quint32 GetStatusWord() override { return kStatusStopped; }
    bool OpenContactor() override { return answer; }
    bool CloseContactor() override { return answer; }
    bool TakeLocalControl() override { return answer; }
    bool ReleaseLocalControl() override { return answer; }
    bool GetParameterRoot(CParameterGroup** root) override {
        *root = ownRoot;
        return answer;
    }
    bool CheckCancelCondition() override { return answer; }
    bool CheckDiagnosisCondition() override { return answer; }

    CParameterGroup* ownRoot = nullptr;
};

class CYesNoLink : public CParameterLink {
public:
    bool answer = true;
    bool ReadWord(quint16, quint16& word) override {
        word = 440;
        return answer;
    }
    bool WriteWord(quint16, quint16) override { return answer; }
    QString LastErrorText() const override { return QStringLiteral("no\nreply"); }
    void Announce(std::span<const quint16> registers) override { announced = registers.size(); }
    std::size_t announced = 0;
};

class CallLog : public testing::Test {
protected:
    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    QStringList m_written;
    CCallLog m_log{[this](const QByteArray& line) { m_written.append(QString::fromUtf8(line)); }, true};
};

TEST_F(CallLog, WritesALineForEveryParameterAccess) {
    CYesNoLink inner;
    CLoggedLink link(inner, m_log);
    const quint16 next[] = {9902, 801};
    link.Announce(next);
    EXPECT_EQ(inner.announced, 2U) << "passed on without a line";
    quint16 word = 0;
    EXPECT_TRUE(link.ReadWord(9902, word));
    EXPECT_EQ(word, 440);
    m_clock.Sleep(25);
    EXPECT_TRUE(link.WriteWord(9902, 500));
    inner.answer = false;
    EXPECT_FALSE(link.WriteWord(801, 1));
    EXPECT_EQ(link.LastErrorText(), QStringLiteral("no\nreply"));
    const QStringList lines{QStringLiteral("0\tReadWord\t9902\t440\tok"),
                            QStringLiteral("25\tWriteWord\t9902\t500\tok"),
                            QStringLiteral("25\tWriteWord\t801\t1\tfailed: no reply")};
    EXPECT_EQ(m_log.Lines(), lines);
    EXPECT_EQ(m_written, QStringList(QStringLiteral("# time\tcall\tregister\tvalue\toutcome")) + lines);
    m_log.Clear();
    EXPECT_TRUE(m_log.Lines().isEmpty());
}

TEST_F(CallLog, PassesEveryDriveCallOnAndNotesIt) {
    struct Call {
        const char* name;
        bool (CHostDrive::*operation)();
        bool isQuery;
    };
    constexpr Call calls[] = {{"RefreshState", &CHostDrive::RefreshState, false},
                              {"StartMotor", &CHostDrive::StartMotor, false},
                              {"StopMotor", &CHostDrive::StopMotor, false},
                              {"ResetFault", &CHostDrive::ResetFault, false},
                              {"OpenContactor", &CHostDrive::OpenContactor, false},
                              {"CloseContactor", &CHostDrive::CloseContactor, false},
                              {"TakeLocalControl", &CHostDrive::TakeLocalControl, false},
                              {"ReleaseLocalControl", &CHostDrive::ReleaseLocalControl, false},
                              {"IsLocalControlActive", &CHostDrive::IsLocalControlActive, true},
                              {"CheckCancelCondition", &CHostDrive::CheckCancelCondition, true},
                              {"CheckDiagnosisCondition", &CHostDrive::CheckDiagnosisCondition, true}};
    CYesNoDrive inner;
    CLoggedDrive drive(inner, m_log);
    for (const bool answer : {true, false}) {
        inner.answer = answer;
        for (const Call& call : calls) {
            m_log.Clear();
            EXPECT_EQ((drive.*call.operation)(), answer) << call.name;
            const char* outcome =
                call.isQuery ? (answer ? "\tyes\tok" : "\tno\tok") : (answer ? "\t\tok" : "\t\tfailed: refused");
            EXPECT_EQ(m_log.Lines().value(0),
                      QStringLiteral("0\t%1\t%2").arg(QLatin1String(call.name), QLatin1String(outcome)));
        }
    }
}

TEST_F(CallLog, NotesWhatQueriesAnswered) {
    CYesNoDrive inner;
    inner.errorCode = 2;
    CLoggedDrive drive(inner, m_log);
    EXPECT_EQ(drive.GetReference(), QStringLiteral("100"));
    EXPECT_EQ(drive.GetStatusWord(), kStatusStopped);
    EXPECT_EQ(drive.GetDriveInfo(), nullptr);
    EXPECT_TRUE(drive.SetReference(QStringLiteral("250")));
    quint32 header = 0;
    quint32 size = 39;
    const FaultBufferRequest request;
    QByteArray record;
    EXPECT_EQ(drive.ReadFaultBuffer(header, &request, &size, record), 2);
    EXPECT_EQ(record.size(), 26);
    const QStringList expected{
        QStringLiteral("0\tGetReference\t\t100\tok"), QStringLiteral("0\tGetStatusWord\t\t16\tok"),
        QStringLiteral("0\tGetDriveInfo\t\tnone\tok"), QStringLiteral("0\tSetReference\t\t250\tok"),
        QStringLiteral("0\tReadFaultBuffer\t\t26 bytes\tfailed: ") + CCommunicationFacade::GetErrorMessage(2, true)};
    EXPECT_EQ(m_log.Lines(), expected);
}

TEST(ScaledClock, RunsFasterAndLosesNoTime) {
    CSteppedClock base;
    base.Sleep(1000);
    CScaledClock clock(base, 20);
    EXPECT_EQ(clock.Now(), 1000);
    clock.Sleep(50);
    EXPECT_EQ(clock.Now(), 1040) << "2 ms of the base clock; 10 ms are owed";
    clock.Sleep(10);
    EXPECT_EQ(clock.Now(), 1060);
}

} // namespace
} // namespace krt550
