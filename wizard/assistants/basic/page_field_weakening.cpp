#include "wizard/assistants/basic/page_field_weakening.h"

#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr AutotuningPageDef kFieldWeakeningPage = {
    .helpTopic = u"7.htm",
    .variant = {.mode = 3, .confirmation = 370, .success = 256, .step = 7, .readsOnceMore = false},
    .rows = kFieldWeakeningRows,
    .condition = ConditionAfter::AllRows,
};

} // namespace

CPageFieldWeakening::CPageFieldWeakening() : CAutotuningPage(kFieldWeakeningPage) {}

} // namespace krt550
