#include "wizard/assistants/basic/page_autotuning_armature.h"

#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr AutotuningPageDef kArmaturePage = {
    .helpTopic = u"4.htm",
    .variant = {.mode = 1, .confirmation = 369, .success = 240, .step = 4, .diagnosisIcon = MessageIcon::Exclamation},
    .rows = kArmatureRows,
};

} // namespace

CPageAutotuningArmature::CPageAutotuningArmature() : CAutotuningPage(kArmaturePage) {}

} // namespace krt550
