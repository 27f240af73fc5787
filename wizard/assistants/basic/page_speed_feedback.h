#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Step 5: speed feedback. Without rows so far.
class CPageSpeedFeedback : public CPlainPage {
    Q_OBJECT

public:
    CPageSpeedFeedback() : CPlainPage(110, QStringLiteral("5.htm")) {}
};

} // namespace krt550
