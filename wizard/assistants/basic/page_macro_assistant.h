#pragma once

#include "wizard/assistants/special/connection_overview.h"
#include "wizard/shell/row_page.h"

#include <QRect>

namespace krt550 {

class CReadOnce;

/// Step 2: the application macro, the parameters that depend on it, and what the terminals are connected to. A chosen
/// macro is loaded with Apply or Next, never while the motor may turn; until then the rest of the page shows "?".
class CPageMacroAssistant : public CRowPage {
public:
    CPageMacroAssistant();

    bool LoadParameters() override;

protected:
    /// A page with the terminals alone: `rows` has no rows.
    CPageMacroAssistant(const PageRows& rows, QString helpTopic);

    bool OnInitDialog() override;
    QWidget* CreateControl(const ControlLayout& control) override;
    void AddReads(std::vector<quint16>& registers) override;
    bool BindRows(CParameterGroup* root, QString& errors) override;
    bool WriteRows() override;

private:
    bool HasMacro() { return GetRows().size() > 0; }
    CRow& GetMacroRow() { return GetRows()[0]; }
    bool IsMacroChosen() { return HasMacro() && GetMacroRow().IsChanged(); }

    void EditTerminals(TerminalKind kind);
    void ShowEdited(std::initializer_list<TerminalKind> kinds);
    void ChooseMacro();
    bool LoadMacro(CParameterGroup* root);
    void ShowDescription();
    void ShowUnknown();
    bool ShowWhatDepends(CParameterGroup* root, CReadOnce& reads, QString& errors);
    bool BindDependentRows(CParameterGroup* root, CReadOnce& reads, QString& errors);
    void ShowView();

    CConnectionOverview m_overview{*this};
    bool m_basicView = true;
    QRect m_group;       ///< of the macro's frame, beside the dependent rows
    QRect m_description; ///< the same of the description
};

} // namespace krt550
