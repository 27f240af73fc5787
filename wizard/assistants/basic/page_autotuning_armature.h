#pragma once

#include "wizard/assistants/basic/autotuning_page.h"

namespace krt550 {

/// Step 4: autotuning of the armature current controller.
class CPageAutotuningArmature : public CAutotuningPage {
public:
    CPageAutotuningArmature();
};

} // namespace krt550
