// What the plays do not show of the drive's links: words that nobody takes, ends that do not fit, silence.
#include "drive/fault_codes.h"
#include "tests/drive/scripted_drive.h"

#include <QRegularExpression>

namespace krt550::test {
namespace {

// As delivered 90.01 is 7.01, 90.02 is 23.01, 92.02 is 1.04.
const Script kLinks[] = {
    {"ScaledBySpeedLimits", "bus | plc-runs 8s : 104=875 plc2=10000 5132=2"},
    {"PlcGoesOnWithItsWords", "bus | plc-runs 8s : 104=875 | 2301=100 4s : 2301=875 104=875"},
    {"NothingWithoutModule",
     "9802=0 1001=1 1101=5 | plc-runs 8s : 701=0 104=0 5132=0 plc2=-99999 | fieldbus-lost 9802=1 1s : 5132=1"},
    {"NothingWithoutAnAdapterInUse", "bus | plc-runs 8s : 104=875 | 9802=0 20s : 910=117 104=0"},
    {"MissingTarget", "bus | 9002=199 | plc-runs : 701=1151 2301=0 5133=2"},
    {"ReadOnlyTarget", "bus | 9003=112 | plc-runs : 112=230 5133=1 | plc3=7 : 5133=2"},
    {"TargetWithLimits", "bus | 9003=2201 plc3=40000 1s : 2201=2 5133=1 | plc3=500 1s : 2201=5"},
    {"NoTarget", "bus | 9002=0 | plc-runs : 701=1151 2301=0 5133=0"},
    {"NoSource", "9802=1 9202=0 9203=199 1s : plc2=0 plc3=0"},
    {"FewWords", "9802=1 5105=1 5106=2 1s | plc-runs 1s : 701=1151 2301=0 plc2=0 plc3=-99999"},
    {"LaterDatasets", "9802=1 5118=5 5105=3 9007=2302 plc7=2000 plc2=500 1s : 2302=175 2301=0 plc6=-99999 plc7=0"},
    {"ModbusCarriesAll", "9802=2 9012=2302 plc12=2000 1s : 2302=175 5101=0"},
    {"PlcBeginsAServiceMode", "9802=1 9003=9906 plc3=1 1s : 9906=1"},
    {"FollowerOfAnotherRatio",
     "partner | partner2302=0 9418=-2 9421=2302 | mailbox | run 8s : 104=875 partner104=875 2302=875"},
    {"SameNode", "partner | partner9401=1 | mailbox | run 8s : 104=875 partner701=0 partner104=0 418=1"},
    {"NoNode", "partner | 9401=0 | mailbox | run 8s : 104=875 partner701=0 418=0"},
    {"OtherBaudRate", "partner | 9402=4 | mailbox | run 8s : partner701=0 418=1"},
    {"OtherMailbox", "partner | 9412=3 9414=704 9415=217 0.1s | run 8s : 104=875 partner701=0 418=3"},
    {"MailboxFromNothing",
     "partner | mailbox | run 8s : partner104=875 | 9415=0 : partner2301=0 partner104=0 partner910=0"},
    {"MailboxToNothing", "partner | partner9415=0 | mailbox | run 8s : partner701=127 partner2301=0 partner9411=0"},
    {"MailboxToWhatIsReadOnly",
     "partner | partner9416=112 9416=9904 | mailbox | run 8s : partner112=96 partner104=875 partner9411=1"},
    {"MasterGoesSilent",
     "partner | mailbox | run 8s : partner104=875 | 9412=0 10s : 104=875 partner910=118 partner104=0"},
    {"FollowsItsPartner",
     "partner | "
     "1001=2 1101=5 9412=-2 9414=701 9415=2301 partner9412=0 partner9420=704 partner9421=217 partner701=6 1s : 701=6 | "
     "partner701=127 partner2301=500 8s : 104=500 partner104=500 | partner9418=0 8s : 910=118 104=0 partner104=500"},
    {"KeepsItsReference",
     "partner | partner3030=3 | mailbox | run 8s | link-lost : partner104=875 partner910=0 partner912=4118"},
    {"MailboxSlowerThanItsSupervision", "partner | 9413=500 | mailbox | 1s | run 8s : 104=875 partner910=118"},
    {"SharesItsCurrent", "twelve 8s : 106=83.5 135=41.7 136=0 419=16384 | slave-weak:10 3s : 135=37.5 136=8.3 910=0"},
    {"DifferenceAboveItsLevel", "twelve 8s | 4702=70 slave-weak:10 0.3s : 910=0 | 1s : 910=128"},
    {"DifferenceShorterThanItsDelay",
     "twelve 8s | 4703=3000 slave-weak:50 2s : 910=0 136=41.7 | slave-weak:1 3s : 910=0"},
    {"MeasurementAdjusted", "twelve 8s | 9723=9000 2s : 136=-4 910=0 | 9723=7000 1s : 910=128"},
    {"SeriesCarryTheSame", "twelve | slave=series 4701=2 slave-weak:50 8s : 135=83.5 136=0 910=0"},
    {"WiredAnotherWay", "twelve | 4701=2 3s : 910=131"},
    {"SlaveLost", "twelve 8s | 9403=500 slave-lost 0.4s : 910=0 419=0 | 0.5s : 910=129"},
    {"SlaveUnsupervised", "twelve 8s | 9403=0 slave-lost 3s : 910=0 104=850 135=0"},
    {"SlaveOfNobody", "slave=parallel 4301=3 4701=1 DI7=on 2s : 910=129"},
    {"ArmatureConverterIsAlone", "twelve | 4301=0 slave-lost 8s : 910=0 104=850 135=0"},
    {"SlaveKeepsItsBridge", "twelve 8s | slave-bridge AI1=-5 : 910=130"},
    {"UnsteadyMains", "twelve 8s | mains-unsteady:10 1s : 910=0 | mains-unsteady:11 1s : 910=127"},
    {"BothChangeTheirBridges", "twelve 8s | AI1=-5 8s : 104=-850~25 135=-41.7 910=0"},
};

INSTANTIATE_TEST_SUITE_P(Links, Scripts, testing::ValuesIn(kLinks), NameOf);

/// A current that does not fall to zero in time is the motor's inductance.
TEST(TwelvePulse, WaitsForZeroCurrentBeforeItChangesBridges) {
    for (const double inductance : {0.028, 0.6}) {
        MotorSet motor = DefaultMotorSet();
        motor.la = inductance;
        ScriptedDrive drive(motor);
        drive.Play("2202=0 twelve 8s | AI1=-5 1s");
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
