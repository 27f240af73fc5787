#include "wizard/assistants/basic/page_name_plate_data.h"

namespace krt550 {
namespace {

// In binding and writing order.
constexpr RowDef kRows[] = {
    {"9901", RowKind::List}, {"9902"}, {"9903"}, {"9904"}, {"2001"}, {"2002"}, {"9911"}, {"3009"}, {"3016"}, {"9910"},
};
static_assert(HasUniqueRegisters(kRows));

} // namespace

CPageNamePlateData::CPageNamePlateData() : CRowPage(100, QStringLiteral("1.htm"), kRows) {}

} // namespace krt550
