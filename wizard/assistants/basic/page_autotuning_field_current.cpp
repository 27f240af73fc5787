#include "wizard/assistants/basic/page_autotuning_field_current.h"

#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr AutotuningPageDef kFieldCurrentPage = {
    .helpTopic = u"3.htm",
    .variant = {.mode = 2, .confirmation = 369, .success = 245, .step = 3, .readsFaultRecord = false},
    .rows = kFieldCurrentRows,
    .condition = ConditionAfter::GeneralRows,
};

} // namespace

CPageAutotuningFieldCurrent::CPageAutotuningFieldCurrent() : CAutotuningPage(kFieldCurrentPage) {}

} // namespace krt550
