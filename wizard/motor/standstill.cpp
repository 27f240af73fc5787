#include "wizard/motor/standstill.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/parameter.h"
#include "wizard/motor/make_safe.h"
#include "wizard/params/parameter_access.h"

namespace krt550 {
namespace {

constexpr quint16 kMainStatus = 801;
constexpr quint16 kReadyToOperate = 2;
constexpr quint16 kRunning = 4;

} // namespace

std::optional<bool> IsSwitchedOn(CHostDrive& drive) {
    CParameterGroup* root = GetParameterRoot(&drive);
    CParameter* status = root ? FindInTree(root, kMainStatus) : nullptr;
    if (!status)
        return false;
    if (!ReadParameter(status))
        return std::nullopt;
    return (status->GetValue() & (kReadyToOperate | kRunning)) != 0;
}

bool IsAtRest(CHostDrive& drive) {
    return !IsMotorUnderControl() && drive.RefreshState() && (drive.GetStatusWord() & kStatusStopped) != 0 &&
           !IsSwitchedOn(drive).value_or(true);
}

} // namespace krt550
