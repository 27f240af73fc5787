#include "wizard/assistants/basic/page_autotuning_field_current.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/row_ids.h"

namespace krt550 {
namespace {

constexpr RowDef kRows[] = {
    {"9911"}, {"406", RowKind::Display}, {"9912", RowKind::List}, {"4401", RowKind::List}, {"4402"}, {"4403"}, {"4502"},
    {"9408"},
};
static_assert(HasUniqueRegisters(kRows));
constexpr std::size_t kDetectedExciter = 1;

constexpr AutotuningPageDef kPage = {
    .layout = 103,
    .helpTopic = u"3.htm",
    .variant = {.mode = 2, .confirmation = 369, .success = 245, .step = 3, .readsFaultRecord = false},
    .rows = kRows,
    .firstResult = 4,
    .rowsBeforeCondition = 4,
};

} // namespace

CPageAutotuningFieldCurrent::CPageAutotuningFieldCurrent() : CAutotuningPage(kPage) {}

bool CPageAutotuningFieldCurrent::BindRows(CParameterGroup* root, QString& errors) {
    const bool bound = CAutotuningPage::BindRows(root, errors);
    // This display row carries its register, as the rows around it do.
    QWidget* label = GetDlgItem(LabelId(406));
    const bool known = GetRows().GetParameter(kDetectedExciter) != nullptr;
    SetControlText(label, known ? QStringLiteral("406 ") + GetControlText(label) : QString());
    return bound;
}

void CPageAutotuningFieldCurrent::OnTimer(int id) {
    CAutotuningPage::OnTimer(id);
    if (id == GetStepNumber() && IsUpdating())
        GetRows().Reread(kDetectedExciter, 1);
}

} // namespace krt550
