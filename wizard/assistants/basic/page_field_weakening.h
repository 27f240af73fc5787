#pragma once

#include "wizard/assistants/basic/autotuning_page.h"

namespace krt550 {

/// Step 7: autotuning of the EMF controller and the flux linearization.
class CPageFieldWeakening : public CAutotuningPage {
public:
    CPageFieldWeakening();
};

} // namespace krt550
