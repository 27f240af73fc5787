#include "host/workbench/tuning.h"

#include "drive/registers.h"
#include "host/connected_drive.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr quint16 kControllerRegisters[] = {reg::kFieldGain,
                                            reg::kFieldTime,
                                            reg::kCurrentGain,
                                            reg::kCurrentTime,
                                            reg::kDiscontinuousLine,
                                            reg::kArmatureInductance,
                                            reg::kArmatureResistance,
                                            reg::kSpeedGain,
                                            reg::kSpeedTime,
                                            reg::kInertia,
                                            reg::kEmfGain,
                                            reg::kEmfTime,
                                            reg::kField40,
                                            reg::kField70,
                                            reg::kField90};

} // namespace

std::vector<ParameterDescription> ControllerParameters(const std::vector<ParameterDescription>& parameters) {
    std::vector<ParameterDescription> controllers;
    std::ranges::copy_if(parameters, std::back_inserter(controllers), [](const ParameterDescription& parameter) {
        return std::ranges::find(kControllerRegisters, parameter.reg) != std::end(kControllerRegisters);
    });
    return controllers;
}

void CTuningWatch::Begin(CConnectedDrive& drive, const std::vector<ParameterDescription>& parameters) {
    m_parameters = ControllerParameters(parameters);
    m_before = ReadValues(drive.PlainDrive(), drive.PlainLink(), m_parameters);
}

std::vector<ValueChange> CTuningWatch::Changes(CConnectedDrive& drive) const {
    return Compare(m_before, ReadValues(drive.PlainDrive(), drive.PlainLink(), m_parameters));
}

} // namespace krt550
