#pragma once

#include "wizard/params/preset_controls.h"
#include "wizard/resources/control_ids.h"
#include "wizard/shell/row_page.h"

#include <array>

namespace krt550 {

struct ConfigurableRow;

/// Up to forty rows that a text file says: parameters, captions, presets, tool tips and help texts.
class CPageConfigurableAssistant : public CRowPage, public CPresetOwner {
public:
    CPageConfigurableAssistant();

    bool ApplyParameters() override;
    void SetAllToPresets() override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    void ReportLoadErrors(const QString& errors) override;
    QWidget* CreateControl(const ControlLayout& control) override;

private:
    /// Gives a row that is bound its preset, tool tip and help text.
    void SetUpRow(std::size_t index, const ConfigurableRow& record);
    void ShowHelpOf(std::size_t index);

    std::array<QString, kConfigurableRowCount> m_helpTexts;
};

} // namespace krt550
