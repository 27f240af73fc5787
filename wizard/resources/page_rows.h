#pragma once

#include "wizard/platform/row_groups.h"

namespace krt550 {

/// The rows of each window, beside its layout.
extern const PageRows kNamePlateRows;
extern const PageRows kMacroRows;
extern const PageRows kFieldCurrentRows;
extern const PageRows kArmatureRows;
extern const PageRows kFieldWeakeningRows;
extern const PageRows kSpeedControllerRows;
extern const PageRows kSpeedGeneralRows;
extern const PageRows kSpeedFiltersRows;
extern const PageRows kSpeedLimitsRows;
extern const PageRows kSpeedFeedbackRows;
extern const PageRows kSpeedFeedbackAutoRows;
extern const PageRows kTachoManualRows;
extern const PageRows kAnalogueInputRows;
extern const PageRows kAnalogueOutputRows;
extern const PageRows kDigitalTerminalRows;
extern const PageRows kProtectionRows;
extern const PageRows kLimitRows;
extern const PageRows k12PulseCommonRows;
extern const PageRows k12PulseProtectionRows;
extern const PageRows kEStopRows;
extern const PageRows kFieldReversalRows;
extern const PageRows kFieldExciterRows;
extern const PageRows kConfigurableRows;
extern const PageRows kSerialRows;
extern const PageRows kFieldbusRows;
extern const PageRows kDatasetRows;
extern const PageRows kMasterFollowerRows;
extern const PageRows kMailBoxRows;

/// All of them.
inline constexpr const PageRows* kAllPageRows[] = {
    &kNamePlateRows,       &kMacroRows,         &kFieldCurrentRows,      &kArmatureRows,        &kFieldWeakeningRows,
    &kSpeedControllerRows, &kSpeedGeneralRows,  &kSpeedFiltersRows,      &kSpeedLimitsRows,     &kSpeedFeedbackAutoRows,
    &kTachoManualRows,     &kAnalogueInputRows, &kAnalogueOutputRows,    &kDigitalTerminalRows, &kProtectionRows,
    &kLimitRows,           &k12PulseCommonRows, &k12PulseProtectionRows, &kEStopRows,           &kFieldExciterRows,
    &kConfigurableRows,    &kSerialRows,        &kFieldbusRows,          &kDatasetRows,         &kMasterFollowerRows,
    &kMailBoxRows,         &kFieldReversalRows,
};

} // namespace krt550
