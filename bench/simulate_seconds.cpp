// simulate_seconds MOTOR SECONDS: has a simulated drive turn a motor for so long in its own time. What
// compare_simulation.sh counts the instructions of.
#include "drive/motor_sets.h"
#include "drive/registers.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <cstdio>
#include <cstdlib>

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
    drive.TakeLocalControl();
    drive.SetSpeedReference(motor->baseSpeed / 2);
    drive.CloseContactor();
    drive.StartMotor();
    for (int second = std::atoi(argv[2]); second > 0; --second) {
        clock.Sleep(1000);
        drive.Advance();
    }
    std::printf("%.2f rpm\n", drive.GetSpeed());
    return 0;
}
