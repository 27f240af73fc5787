#pragma once

#include "wizard/assistants/basic/autotuning_page.h"
#include "wizard/shell/wizard_tab_page.h"

#include <optional>

namespace krt550 {

/// Base speed, speed range and ramps.
class CTabPageSetGeneralParameters : public CRowTabPage {
public:
    CTabPageSetGeneralParameters();
};

/// Zero speed, torque and current limits.
class CTabPageSetLimits : public CRowTabPage {
public:
    CTabPageSetLimits();
};

/// Filters of the speed loop, which the slider of the page sets too.
class CTabPageSetFilters : public CRowTabPage {
public:
    CTabPageSetFilters();
    /// Shows what the drive has by now and forgets what was typed, once the tab has been loaded.
    void ShowDriveValues();
};

/// Step 6: autotuning of the speed controller. A slider between slow and fast writes a set of values of the wizard text
/// file for each of its positions: all of them when it is released, on Apply those that the drive has not. When the
/// page opens the slider stands where the drive is, and at its maximum when the drive has none of these sets.
class CPageAutotuningSpeedController : public CAutotuningPage {
public:
    CPageAutotuningSpeedController();

    bool LoadParameters() override;
    void AddReads(std::vector<quint16>& registers) override;

protected:
    bool WriteRows() override;

private:
    void SetUpSlider();
    /// Index of the set of values that the drive has, the largest of several.
    std::optional<quint16> IndexOfDrive();
    /// Writes the values of the slider's position, then the filters tab. A parameter that the drive lacks is told of
    /// and passed over. True when everything else was written.
    bool ApplySlider(bool onlyOther);

    CTabPageSetGeneralParameters m_general;
    CTabPageSetLimits m_limits;
    CTabPageSetFilters m_filters;
    int m_sliderStep;
};

} // namespace krt550
