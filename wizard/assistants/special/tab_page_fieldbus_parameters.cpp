#include "wizard/assistants/special/tab_page_fieldbus_parameters.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr quint16 kModuleType = 5101;

bool IsUsed(const CParameter* parameter) {
    return parameter && !ParameterName(*parameter).startsWith(QLatin1String("fieldbus"), Qt::CaseInsensitive);
}

} // namespace

CTabPageFieldbusParameters::CTabPageFieldbusParameters() : CRowTabPage(kFieldbusRows) {
    Handle(kIdFieldbusDefaults, ControlEvent::Clicked, [this] { EnterDefaults(); });
}

bool CTabPageFieldbusParameters::BindRows(CParameterGroup* root, QString& errors) {
    const FailurePass pass;
    bool bound = true;
    for (std::size_t at = 0; at < GetRows().size(); ++at) {
        CRow& row = GetRows()[at];
        const CParameter* parameter = FindInTree(root, row.GetRegister());
        const bool shown = row.GetRegister() == kModuleType ? parameter != nullptr : IsUsed(parameter);
        row.Show(shown);
        if (!shown) {
            row.Unbind();
            continue;
        }
        bound = row.Bind(root, errors) && bound;
        AddToolTip(row.GetLabelId(), ParameterName(*parameter));
    }
    return bound;
}

void CTabPageFieldbusParameters::EnterDefaults() {
    const CRow* type = GetRows().Find(kModuleType);
    QList<RegisterValue> defaults;
    if (!type->IsRead() ||
        !CWizardTextStore::Instance().GetFieldbusDefaults(type->GetParameter()->GetStringValue(), defaults))
        return;
    for (const auto& [reg, value] : defaults)
        if (CRow* row = GetRows().Find(reg); row && row != type)
            row->Enter(QString::number(value));
}

} // namespace krt550
