#include "wizard/assistants/basic/page_name_plate_data.h"

#include "wizard/resources/page_rows.h"

namespace krt550 {

CPageNamePlateData::CPageNamePlateData() : CRowPage(kNamePlateRows, QStringLiteral("1.htm")) {}

} // namespace krt550
