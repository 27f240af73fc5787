#pragma once

namespace krt550 {

/// Ids of the controls that several windows share.
enum ControlId : int {
    kIdCancelPage = 91,
    kIdHelp = 93,
    kIdNext = 95,
    kIdBack = 96,
    kIdApply = 98,
    kIdReset = 99,
    kIdStepsDoneGroup = 60001,
    kIdPageTitle = 60002,
    kIdStepsDoneLabel = 163,
    // Of the autotuning pages.
    kIdAutotuningLabel = 60201,
    kIdAutotuningStart = 60202,
    kIdAutotuningProgress = 60203,
    kIdAutotuningDiagnosis = 60204,
    // Of the speed controller's autotuning page.
    kIdSpeedResponse = 60211,
    kIdSpeedResponseSlow = 60212,
    kIdSpeedResponseNormal = 60213,
    kIdSpeedResponseFast = 60214,
    kIdTabPlaceholder = 60221 ///< where a page has its tabs
};

/// Ids of the digits of steps 1 to 7, in order.
inline constexpr int kStepIconIds[7] = {151, 152, 157, 153, 154, 155, 156};

/// Ids of the column headings of the k-th group of rows on a page (k from 0), and of the group box around it.
constexpr int GroupId(int k) {
    return 60100 + 10 * k;
}
constexpr int ActualHeadingId(int k) {
    return GroupId(k) + 1;
}
constexpr int UnitHeadingId(int k) {
    return GroupId(k) + 2;
}
constexpr int MinimumHeadingId(int k) {
    return GroupId(k) + 3;
}
constexpr int MaximumHeadingId(int k) {
    return GroupId(k) + 4;
}

} // namespace krt550
