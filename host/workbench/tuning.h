#pragma once

#include "host/backup/comparison.h"

namespace krt550 {

class CConnectedDrive;

/// Those of a drive's parameters that an autotuning writes: what the controllers of field, armature current, speed and
/// EMF go by, and what was identified of the motor.
std::vector<ParameterDescription> ControllerParameters(const std::vector<ParameterDescription>& parameters);

/// Notices what has become of the controller parameters while somebody else worked on the drive.
class CTuningWatch {
public:
    /// `parameters` are all that the drive has. Reads some twenty values.
    void Begin(CConnectedDrive& drive, const std::vector<ParameterDescription>& parameters);
    /// What is different since Begin; what could not be read at one of the two moments is left out.
    std::vector<ValueChange> Changes(CConnectedDrive& drive) const;

private:
    std::vector<ParameterDescription> m_parameters;
    ParameterValues m_before;
};

} // namespace krt550
