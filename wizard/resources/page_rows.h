#pragma once

#include "wizard/platform/row_groups.h"

namespace krt550 {

/// The rows of each window, beside its layout.
extern const PageRows kNamePlateRows;
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

/// All of them.
inline constexpr const PageRows* kAllPageRows[] = {
    &kNamePlateRows,    &kFieldCurrentRows, &kArmatureRows,    &kFieldWeakeningRows,    &kSpeedControllerRows,
    &kSpeedGeneralRows, &kSpeedFiltersRows, &kSpeedLimitsRows, &kSpeedFeedbackAutoRows, &kTachoManualRows,
};

} // namespace krt550
