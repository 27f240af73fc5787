#pragma once

#include "wizard/assistants/basic/autotuning_page.h"

namespace krt550 {

/// Step 3: autotuning of the field current controller.
class CPageAutotuningFieldCurrent : public CAutotuningPage {
public:
    CPageAutotuningFieldCurrent();
};

} // namespace krt550
