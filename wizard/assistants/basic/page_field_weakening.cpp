#include "wizard/assistants/basic/page_field_weakening.h"

namespace krt550 {
namespace {

constexpr RowDef kRows[] = {
    {"4401", RowKind::List},
    {"9902"},
    {"9904"},
    {"2001"},
    {"2002"},
    {"9911"},
    {"3012"},
    {"4409"},
    {"4410"},
    {"4412"},
    {"4413"},
    {"4414"},
};
static_assert(HasUniqueRegisters(kRows));

constexpr AutotuningPageDef kPage = {
    .layout = 112,
    .helpTopic = u"7.htm",
    .variant = {.mode = 3, .confirmation = 370, .success = 256, .step = 7, .readsOnceMore = false},
    .rows = kRows,
    .firstResult = 7,
    .rowsBeforeCondition = std::size(kRows),
};

} // namespace

CPageFieldWeakening::CPageFieldWeakening() : CAutotuningPage(kPage) {}

// The field control mode is written after the values that it builds on.
bool CPageFieldWeakening::WriteRows() {
    bool written = GetRows().Write(1, 6);
    written = GetRows().Write(0, 1) && written;
    return GetRows().Write(7, GetRows().size() - 7) && written;
}

} // namespace krt550
