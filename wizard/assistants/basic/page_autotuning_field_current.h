#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Step 3: autotuning of the field current controller. Without rows so far.
class CPageAutotuningFieldCurrent : public CPlainPage {
    Q_OBJECT

public:
    CPageAutotuningFieldCurrent() : CPlainPage(103, QStringLiteral("3.htm")) {}
};

} // namespace krt550
