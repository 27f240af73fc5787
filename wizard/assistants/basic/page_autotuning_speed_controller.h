#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Step 6: autotuning of the speed controller. Without rows so far.
class CPageAutotuningSpeedController : public CPlainPage {
    Q_OBJECT

public:
    CPageAutotuningSpeedController() : CPlainPage(111, QStringLiteral("6.htm")) {}
};

} // namespace krt550
