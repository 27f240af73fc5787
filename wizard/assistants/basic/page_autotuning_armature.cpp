#include "wizard/assistants/basic/page_autotuning_armature.h"

namespace krt550 {
namespace {

constexpr RowDef kRows[] = {
    {"9903"}, {"2005"}, {"2006"}, {"2012"}, {"2013"}, {"4306"}, {"4307"}, {"4308"}, {"4309"}, {"4310"},
};
static_assert(HasUniqueRegisters(kRows));

constexpr AutotuningPageDef kPage = {
    .layout = 104,
    .helpTopic = u"4.htm",
    .variant = {.mode = 1, .confirmation = 369, .success = 240, .step = 4, .diagnosisIcon = MessageIcon::Exclamation},
    .rows = kRows,
    .firstResult = 5,
    .rowsBeforeCondition = std::size(kRows) + 1,
};

} // namespace

CPageAutotuningArmature::CPageAutotuningArmature() : CAutotuningPage(kPage) {}

} // namespace krt550
