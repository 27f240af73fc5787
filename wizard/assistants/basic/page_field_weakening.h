#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Step 7: field weakening. Without rows so far.
class CPageFieldWeakening : public CPlainPage {
    Q_OBJECT

public:
    CPageFieldWeakening() : CPlainPage(112, QStringLiteral("7.htm")) {}
};

} // namespace krt550
