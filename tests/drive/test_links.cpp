// What the plays do not show of the drive's links: words that nobody takes, ends that do not fit, silence.
#include "drive/drive_link.h"
#include "drive/fault_codes.h"
#include "tests/drive/terminal_script.h"

#include <QFile>
#include <QRegularExpression>

namespace krt550::test {
namespace {

/// A drive with its PLC, a partner on the drive-to-drive link and a 12-pulse slave, each as far as a case wants it.
class LinkedDrive {
public:
    LinkedDrive() {
        Motor(m_drive.Drive());
        Motor(m_partner);
        SetUpFollower(m_partner);
    }

    /// "9002=104" and "DI7=on" in the drive, "partner9401=1" in its partner, "plc2=10000" from the PLC,
    /// "slave=parallel", and fault modes.
    void Do(const char* words) {
        for (const QString& word : QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts)) {
            const QString name = word.section(u'=', 0, 0);
            const QString value = word.section(u'=', 1);
            if (name.startsWith(QLatin1String("partner")))
                m_partner.TakeWord(name.mid(7).toUShort(), static_cast<quint16>(value.toInt()));
            else if (name.startsWith(QLatin1String("plc")))
                m_drive.Drive().SendFromPlc(name.mid(3).toInt(), static_cast<quint16>(value.toInt()));
            else if (name == QLatin1String("slave"))
                m_drive.Drive().GetTwelvePulse().GetSlave().wiring =
                    value == QLatin1String("parallel") ? SlaveWiring::Parallel : SlaveWiring::Series;
            else if (name == word)
                m_drive.Disturb(word.toLatin1().constData());
            else
                EXPECT_TRUE(test::Do(m_drive.Drive(), word.toLatin1().constData())) << word.toStdString();
        }
    }

    /// The same words with what there is now, in shown units. No farther away than 3 % or 0.5.
    void Expect(const char* words) {
        for (const QString& word : QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts)) {
            const QString name = word.section(u'=', 0, 0);
            const double value = word.section(u'=', 1).toDouble();
            EXPECT_NEAR(Look(name), value, std::max(0.5, std::abs(value) * 0.03)) << word.toStdString();
        }
    }

    void Seconds(double seconds) { m_drive.Seconds(seconds); }

private:
    static void Motor(CSimulatedDrive& drive) {
        CRegisterFile& registers = drive.GetRegisters();
        registers.SetNumber(reg::kArmatureResistance, drive.GetMotor().GetData().armatureResistance * 1000);
        registers.SetNumber(reg::kArmatureInductance, drive.GetMotor().GetData().armatureInductance * 1000);
        registers.SetNumber(reg::kRampUp, 2);
        registers.SetNumber(reg::kRampDown, 2);
    }
    double Look(const QString& name) {
        if (name.startsWith(QLatin1String("partner")))
            return m_partner.GetRegisters().GetNumber(name.mid(7).toUShort(), -1);
        if (!name.startsWith(QLatin1String("plc")))
            return m_drive.Value(name.toUShort());
        const auto word = m_drive.Drive().ReceivedByPlc(name.mid(3).toInt());
        return word ? static_cast<qint16>(*word) : -99999;
    }

    WholeDrive m_drive{"S2"};
    CSimulatedDrive m_partner{WholeDescription(), FindMotorSet(QStringLiteral("S1"))};
    CDriveLink m_link{m_drive.Drive(), m_partner};
};

struct LinkStep {
    const char* words;
    double seconds;
    const char* expected;
};

struct LinkCase {
    const char* name;
    std::vector<LinkStep> steps;
};

// 1030: the PLC in control, off; 1151: on and run. As delivered 90.01 is 7.01, 90.02 is 23.01, 92.02 is 1.04.
const char* const kBus = "9802=1 1001=1 1101=5";
const char* const kStart = "plc1=1030 plc2=10000 plc1=1151";
// A follower that hears of the master only when that runs does not start.
const LinkStep kMailbox = {"9412=1 9414=704 9415=217", 0.1, ""};
const char* const kRun = "DI7=on DI8=on AI1=5";
const char* const kTwelve = "slave=parallel 4301=2 4701=1 DI7=on DI8=on AI1=5 load:80";

const LinkCase kCases[] = {
    {"ScaledBySpeedLimits", {{kBus, 0, ""}, {kStart, 8, "104=875 plc2=10000 5132=2"}}},
    {"PlcGoesOnWithItsWords", {{kBus, 0, ""}, {kStart, 8, "104=875"}, {"2301=100", 4, "2301=875 104=875"}}},
    {"NothingWithoutModule", {{"9802=0 1001=1 1101=5", 0, ""}, {kStart, 8, "701=0 104=0 5132=0 plc2=-99999"}}},
    {"NothingWithoutAnAdapterInUse", {{kBus, 0, ""}, {kStart, 8, "104=875"}, {"9802=0", 20, "910=117 104=0"}}},
    {"MissingTarget", {{kBus, 0, ""}, {"9002=199", 0, ""}, {kStart, 5, "701=1151 2301=0 5133=2"}}},
    {"ReadOnlyTarget", {{kBus, 0, ""}, {"9003=112", 0, ""}, {kStart, 5, "112=230 5133=1"}, {"plc3=7", 5, "5133=2"}}},
    {"TargetWithLimits", {{kBus, 0, ""}, {"9003=2201 plc3=40000", 1, "2201=2 5133=1"}, {"plc3=500", 1, "2201=5"}}},
    {"NoTarget", {{kBus, 0, ""}, {"9002=0", 0, ""}, {kStart, 5, "701=1151 2301=0 5133=0"}}},
    {"NoSource", {{"9802=1 9202=0 9203=199", 1, "plc2=0 plc3=0"}}},
    {"FewWords", {{"9802=1 5105=1 5106=2", 1, ""}, {kStart, 1, "701=1151 2301=0 plc2=0 plc3=-99999"}}},
    {"LaterDatasets", {{"9802=1 5118=5 5105=3 9007=2302 plc7=2000 plc2=500", 1, "2302=175 2301=0 plc6=-99999 plc7=0"}}},
    {"ModbusCarriesAll", {{"9802=2 9012=2302 plc12=2000", 1, "2302=175 5101=0"}}},
    {"PlcBeginsAServiceMode", {{"9802=1 9003=9906 plc3=1", 1, "9906=1"}}},

    {"FollowerOfAnotherRatio",
     {{"partner2302=0 9418=-2 9421=2302", 0, ""}, kMailbox, {kRun, 8, "104=875 partner104=875 2302=875"}}},
    {"SameNode", {{"partner9401=1", 0, ""}, kMailbox, {kRun, 8, "104=875 partner701=0 partner104=0 418=1"}}},
    {"NoNode", {{"9401=0", 0, ""}, kMailbox, {kRun, 8, "104=875 partner701=0 418=0"}}},
    {"OtherBaudRate", {{"9402=4", 0, ""}, kMailbox, {kRun, 8, "partner701=0 418=1"}}},
    {"OtherMailbox", {{"9412=3 9414=704 9415=217", 0.1, ""}, {kRun, 8, "104=875 partner701=0 418=3"}}},
    {"MailboxFromNothing",
     {kMailbox, {kRun, 8, "partner104=875"}, {"9415=0", 5, "partner2301=0 partner104=0 partner910=0"}}},
    {"MailboxToNothing", {{"partner9415=0", 0, ""}, kMailbox, {kRun, 8, "partner701=127 partner2301=0 partner9411=0"}}},
    {"MailboxToWhatIsReadOnly",
     {{"partner9416=112 9416=9904", 0, ""}, kMailbox, {kRun, 8, "partner112=96 partner104=875 partner9411=1"}}},
    {"MasterGoesSilent",
     {kMailbox, {kRun, 8, "partner104=875"}, {"9412=0", 10, "104=875 partner910=118 partner104=0"}}},
    {"FollowsItsPartner",
     {{"1001=2 1101=5 9412=-2 9414=701 9415=2301 partner9412=0 partner9420=704 partner9421=217 partner701=6", 1,
       "701=6"},
      {"partner701=127 partner2301=500", 8, "104=500 partner104=500"},
      {"partner9418=0", 8, "910=118 104=0 partner104=500"}}},
    {"KeepsItsReference",
     {{"partner3030=3", 0, ""},
      kMailbox,
      {kRun, 8, ""},
      {"link-lost", 5, "partner104=875 partner910=0 partner912=4118"}}},
    {"MailboxSlowerThanItsSupervision",
     {{"9413=500", 0, ""}, kMailbox, {"", 1, ""}, {kRun, 8, "104=875 partner910=118"}}},

    {"SharesItsCurrent",
     {{kTwelve, 8, "106=83.5 135=41.7 136=0 419=16384"}, {"slave-weak:10", 3, "135=37.5 136=8.3 910=0"}}},
    {"DifferenceAboveItsLevel", {{kTwelve, 8, ""}, {"4702=70 slave-weak:10", 0.3, "910=0"}, {"", 1, "910=128"}}},
    {"DifferenceShorterThanItsDelay",
     {{kTwelve, 8, ""}, {"4703=3000 slave-weak:50", 2, "910=0 136=41.7"}, {"slave-weak:1", 3, "910=0"}}},
    {"MeasurementAdjusted", {{kTwelve, 8, ""}, {"9723=9000", 2, "136=-4 910=0"}, {"9723=7000", 1, "910=128"}}},
    {"SeriesCarryTheSame", {{kTwelve, 0, ""}, {"slave=series 4701=2 slave-weak:50", 8, "135=83.5 136=0 910=0"}}},
    {"WiredAnotherWay", {{kTwelve, 0, ""}, {"4701=2", 3, "910=131"}}},
    {"SlaveLost", {{kTwelve, 8, ""}, {"9403=500 slave-lost", 0.4, "910=0 419=0"}, {"", 0.5, "910=129"}}},
    {"SlaveUnsupervised", {{kTwelve, 8, ""}, {"9403=0 slave-lost", 3, "910=0 104=850 135=0"}}},
    {"SlaveOfNobody", {{"slave=parallel 4301=3 4701=1 DI7=on", 2, "910=129"}}},
    {"ArmatureConverterIsAlone", {{kTwelve, 0, ""}, {"4301=0 slave-lost", 8, "910=0 104=850 135=0"}}},
    {"SlaveKeepsItsBridge", {{kTwelve, 8, ""}, {"slave-bridge AI1=-5", 5, "910=130"}}},
    {"UnsteadyMains", {{kTwelve, 8, ""}, {"mains-unsteady:10", 1, "910=0"}, {"mains-unsteady:11", 1, "910=127"}}},
    {"BothChangeTheirBridges", {{kTwelve, 8, ""}, {"AI1=-5", 8, "104=-850 135=-41.7 910=0"}}},
};

class Links : public testing::TestWithParam<LinkCase> {};

TEST_P(Links, DoAsTheirParametersSay) {
    LinkedDrive drive;
    for (const LinkStep& step : GetParam().steps) {
        SCOPED_TRACE(step.words);
        drive.Do(step.words);
        drive.Seconds(step.seconds);
        drive.Expect(step.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(All, Links, testing::ValuesIn(kCases),
                         [](const auto& c) { return std::string(c.param.name); });

/// A current that does not fall to zero in time is the motor's inductance.
TEST(TwelvePulse, WaitsForZeroCurrentBeforeItChangesBridges) {
    for (const double inductance : {0.028, 0.6}) {
        MotorSet motor = DefaultMotorSet();
        motor.la = inductance;
        WholeDrive drive(motor);
        drive.KnowArmature();
        drive.SetValue(reg::kRampUp, 2);
        drive.SetValue(reg::kRampDown, 0);
        drive.Drive().GetTwelvePulse().GetSlave().wiring = SlaveWiring::Parallel;
        Do(drive.Drive(), "4301=2 4701=1 DI7=on DI8=on AI1=5");
        drive.Disturb("load:80");
        drive.Seconds(8);
        Do(drive.Drive(), "AI1=-5");
        drive.Seconds(1);
        EXPECT_EQ(drive.Value(reg::kLastFaultCode), inductance > 0.1 ? kFaultZeroCurrent : 0) << inductance;
    }
}

/// What an adapter usually needs is filled in where there is a row for it.
TEST(FieldbusAdapter, UsesWhateverItsDefaultsSet) {
    QFile texts(QStringLiteral(KRT550_SOURCE_DIR "/data/Wzkrt550.txt"));
    ASSERT_TRUE(texts.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(texts.readAll()).split(u'\n');
    for (const QString& name : AdapterNames().split(QStringLiteral(", "))) {
        CRegisterFile registers(WholeDescription());
        CFieldbusAdapter adapter;
        AdapterType type{};
        ASSERT_TRUE(FindAdapter(name, type));
        registers.SetWord(reg::kFieldbusModule, 1);
        adapter.SetMounted(type);
        adapter.Read(registers);
        int defaults = 0;
        for (const QString& line : lines.filter(QRegularExpression(QStringLiteral("^%1\t").arg(name.toUpper())))) {
            const ParameterDescription* parameter = registers.FindDescription(line.section(u'\t', 1, 1).toUShort());
            ASSERT_TRUE(parameter) << line.toStdString();
            EXPECT_FALSE(parameter->name.startsWith(QLatin1String("Fieldbus"))) << line.toStdString();
            ++defaults;
        }
        EXPECT_EQ(defaults > 0, type != AdapterType::None) << name.toStdString();
    }
}

} // namespace
} // namespace krt550::test
