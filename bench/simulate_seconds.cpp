// simulate_seconds MOTOR SECONDS: has a simulated drive turn a motor for so long in its own time. What
// compare_simulation.sh counts the instructions of. Exit status 1 when the drive has tripped: a motor that stands costs
// nothing.
// What tests include counts on it.
#include "tests/support/precompiled.h"

#include "tests/drive/whole_drive.h"

int main(int argc, char** argv) {
    using namespace krt550;
    const MotorSet* motor = argc > 2 ? FindMotorSet(QString::fromLocal8Bit(argv[1])) : nullptr;
    if (!motor) {
        std::fprintf(stderr, "simulate_seconds MOTOR SECONDS, as simulate_seconds S2 10\n");
        return 2;
    }
    test::WholeDrive drive(*motor);
    drive.SetValue(reg::kLocalSupervision, 0);
    // What a person sets by hand where the autotuning says that the current has gaps always: README.md has the values.
    if (motor->name == QLatin1String("S5"))
        drive.Disturb("4306=0.008 4307=1.2 4309=0.02 4310=16");
    drive.Run(motor->baseSpeed / 2);
    for (int second = std::atoi(argv[2]); second > 0; --second)
        drive.Silence(1);
    std::printf("%.2f rpm, fault %d\n", drive.Drive().GetSpeed(), drive.Drive().GetFaults().GetActive());
    return drive.Drive().GetFaults().GetActive() == 0 ? 0 : 1;
}
