#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// 12-pulse operation. Without rows so far.
class CPage12Pulse : public CPlainPage {
    Q_OBJECT

public:
    CPage12Pulse() : CPlainPage(139, QStringLiteral("14.htm")) {}
};

} // namespace krt550
