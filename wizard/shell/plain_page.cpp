#include "wizard/shell/plain_page.h"

namespace krt550 {

bool CPlainPage::LoadParameters() {
    UpdateStepIcons();
    InitResetButton();
    UpdateNextCaption();
    return true;
}

} // namespace krt550
