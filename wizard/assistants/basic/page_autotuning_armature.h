#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Step 4: autotuning of the armature current controller. Without rows so far.
class CPageAutotuningArmature : public CPlainPage {
    Q_OBJECT

public:
    CPageAutotuningArmature() : CPlainPage(104, QStringLiteral("4.htm")) {}
};

} // namespace krt550
