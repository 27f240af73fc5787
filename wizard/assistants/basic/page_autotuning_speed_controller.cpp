#include "wizard/assistants/basic/page_autotuning_speed_controller.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/resources.h"
#include "wizard/platform/slider.h"
#include "wizard/platform/wait_cursor.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_tab_sheet.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <map>

namespace krt550 {
namespace {

constexpr AutotuningPageDef kSpeedControllerPage = {
    .helpTopic = u"6.htm",
    .variant = {.mode = 4, .confirmation = 370, .success = 249, .step = 6, .judgesFirst = true},
    .rows = kSpeedControllerRows,
};

constexpr QPoint kTabOffset(-6, -7);
constexpr int kGeneralLabel = 572;
constexpr int kLimitsLabel = 1063;
constexpr int kFiltersLabel = 573;

/// Where the wizard text file gives none.
constexpr int kDefaultSliderStep = 10;

/// Sets and writes one value; false when it was refused (shown). A missing parameter is shown, and is no failure.
/// `onlyOther`: the drive is asked first, and what it has is not written.
bool WriteValue(CParameterGroup* root, const SliderValue& value, bool onlyOther) {
    CParameter* parameter = FindParameter(root, value.reg);
    if (!parameter)
        return true;
    if (onlyOther && !ReadParameter(parameter))
        return false;
    if (onlyOther && parameter->GetActualValue() == value.value)
        return true;
    if (parameter->SetValue(value.value, false))
        return WriteParameter(parameter);
    ShowLastError(parameter);
    return false;
}

} // namespace

CTabPageSetGeneralParameters::CTabPageSetGeneralParameters() : CRowTabPage(kSpeedGeneralRows) {}

CTabPageSetLimits::CTabPageSetLimits() : CRowTabPage(kSpeedLimitsRows) {}

CTabPageSetFilters::CTabPageSetFilters() : CRowTabPage(kSpeedFiltersRows) {}

void CTabPageSetFilters::ShowDriveValues() {
    for (std::size_t row = 0; row < GetRows().size(); ++row)
        if (!GetRows().GetParameter(row))
            return;
    GetRows().Reread(0, GetRows().size());
}

CPageAutotuningSpeedController::CPageAutotuningSpeedController()
    : CAutotuningPage(kSpeedControllerPage), m_sliderStep(kDefaultSliderStep) {
    CWizardTabSheet& tabs = UseTabs(kIdTabPlaceholder, kTabOffset);
    tabs.AddTab(m_general, LoadText(kGeneralLabel));
    tabs.AddTab(m_limits, LoadText(kLimitsLabel));
    tabs.AddTab(m_filters, LoadText(kFiltersLabel));
    Handle(kIdSpeedResponse, ControlEvent::Released, [this] {
        const CWaitCursor wait;
        const FailurePass pass;
        ApplySlider(false);
    });
}

bool CPageAutotuningSpeedController::LoadParameters() {
    const bool loaded = CAutotuningPage::LoadParameters();
    SetUpSlider();
    return loaded;
}

void CPageAutotuningSpeedController::SetUpSlider() {
    auto* slider = GetControl<CSlider>(kIdSpeedResponse);
    if (!slider)
        return;
    SpeedResponse response;
    if (CWizardTextStore::Instance().GetSpeedResponse(response)) {
        slider->setRange(response.minimum, response.maximum);
        m_sliderStep = response.step > 0 ? response.step : kDefaultSliderStep;
    }
    const qint64 mark = std::abs(qint64{slider->minimum()} - slider->maximum() / 2);
    slider->SetMark(static_cast<int>(std::min<qint64>(mark, INT_MAX)));
    slider->setValue(slider->maximum());
    const std::optional<quint16> index = IndexOfDrive();
    if (index && *index != slider->maximum() / m_sliderStep) // in the middle of what belongs to it
        slider->setValue(static_cast<int>(std::min<qint64>((2 * qint64{*index} + 1) * m_sliderStep / 2, INT_MAX)));
}

void CPageAutotuningSpeedController::AddReads(std::vector<quint16>& registers) {
    CAutotuningPage::AddReads(registers);
    for (const SliderValue& value : CWizardTextStore::Instance().GetAllSliderValues())
        registers.push_back(value.reg);
}

std::optional<quint16> CPageAutotuningSpeedController::IndexOfDrive() {
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    std::map<quint16, std::optional<quint16>> words; // each is read once, and none when it cannot be read
    std::map<quint16, bool> fits;                    // by index
    for (const auto& [index, reg, value] : CWizardTextStore::Instance().GetAllSliderValues()) {
        const auto [word, isNew] = words.try_emplace(reg);
        CParameter* parameter = root ? FindInTree(root, reg) : nullptr;
        if (isNew && parameter && ReadParameter(parameter))
            word->second = parameter->GetActualValue();
        bool& fitsSoFar = fits.try_emplace(index, true).first->second;
        fitsSoFar = fitsSoFar && word->second == value;
    }
    const auto found = std::ranges::find(fits.rbegin(), fits.rend(), true, &std::pair<const quint16, bool>::second);
    return found == fits.rend() ? std::nullopt : std::optional(found->first);
}

bool CPageAutotuningSpeedController::WriteRows() {
    bool written = GetRows().Write();
    written = m_general.ApplyParameters() && written;
    written = m_limits.ApplyParameters() && written;
    return ApplySlider(true) && written;
}

bool CPageAutotuningSpeedController::ApplySlider(bool onlyOther) {
    bool written = true;
    const auto* slider = GetControl<CSlider>(kIdSpeedResponse);
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    QList<SliderValue> values;
    if (slider && root)
        CWizardTextStore::Instance().GetSliderValues(static_cast<quint16>(slider->value() / m_sliderStep), values);
    for (const SliderValue& value : values)
        written = WriteValue(root, value, onlyOther) && written;
    written = m_filters.ApplyParameters() && written;
    m_filters.ShowDriveValues();
    return written;
}

} // namespace krt550
