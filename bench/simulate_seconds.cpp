// simulate_seconds MOTOR SECONDS: has a simulated drive turn a motor for so long in its own time. What
// compare_simulation.sh counts the instructions of. Exit status 1 when the drive has tripped: a motor that stands costs
// nothing.
#include "drive/motor_sets.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <cstdio>
#include <cstdlib>

namespace {

/// What a person sets by hand where the autotuning says that the current has gaps always: README.md has the values.
void SetByHand(krt550::CRegisterFile& registers) {
    using namespace krt550;
    registers.SetNumber(reg::kCurrentGain, 0.008);
    registers.SetNumber(reg::kCurrentTime, 1.2);
    registers.SetNumber(reg::kArmatureInductance, 0.02);
    registers.SetNumber(reg::kArmatureResistance, 16);
}

} // namespace

int main(int argc, char** argv) {
    using namespace krt550;
    QStringList errors;
    const auto parameters =
        ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors);
    const MotorSet* motor = argc > 2 ? FindMotorSet(QString::fromLocal8Bit(argv[1])) : nullptr;
    if (!parameters || !motor) {
        std::fprintf(stderr, "simulate_seconds MOTOR SECONDS, as simulate_seconds S2 10\n%s\n",
                     qPrintable(errors.join(u'\n')));
        return 2;
    }
    CSteppedClock clock;
    const ClockScope scope(clock);
    CSimulatedDrive drive(*parameters, motor);
    drive.GetRegisters().SetNumber(reg::kLocalSupervision, 0);
    if (motor->name == QLatin1String("S5"))
        SetByHand(drive.GetRegisters());
    drive.TakeLocalControl();
    drive.SetSpeedReference(motor->baseSpeed / 2);
    drive.CloseContactor();
    drive.StartMotor();
    for (int second = std::atoi(argv[2]); second > 0; --second) {
        clock.Sleep(1000);
        drive.Advance();
    }
    std::printf("%.2f rpm, fault %d\n", drive.GetSpeed(), drive.GetFaults().GetActive());
    return drive.GetFaults().GetActive() == 0 ? 0 : 1;
}
