#pragma once

#include "wizard/shell/row_page.h"

namespace krt550 {

/// Step 1: language, the motor's name plate, two protection levels and the mains voltage.
class CPageNamePlateData : public CRowPage {
public:
    CPageNamePlateData();
};

} // namespace krt550
