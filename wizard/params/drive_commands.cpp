#include "wizard/params/drive_commands.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "wizard/platform/message_queue.h"

namespace krt550 {
namespace {

bool IsStopped(CHostDrive& drive) {
    drive.RefreshState();
    return (drive.GetStatusWord() & kStatusStopped) != 0;
}

} // namespace

bool CloseContactorAndStart(CHostDrive* drive) {
    if (!drive)
        return false;
    const bool closed = drive->CloseContactor();
    drive->StartMotor();
    return closed;
}

void StopAndOpenContactor(CHostDrive* drive) {
    if (!drive)
        return;
    drive->StopMotor();
    drive->OpenContactor();
}

bool WaitForStatusBit(CHostDrive* drive, const QWidget* page) {
    constexpr int kPolls = 250;
    constexpr int kPollMs = 100;
    if (!drive)
        return false;
    if (IsStopped(*drive))
        return true;
    for (int poll = 1; poll <= kPolls; ++poll) {
        PumpMessages(page);
        CClock::Current().Sleep(kPollMs);
        PumpMessages(page);
        const bool stopped = IsStopped(*drive);
        PumpMessages(page);
        // The last reading comes too late to count.
        if (stopped && poll < kPolls)
            return true;
    }
    return false;
}

void PumpMessages(const QWidget* page) {
    if (page)
        DrainMessageQueue();
}

} // namespace krt550
