#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Field exciter. Without rows so far.
class CPageFieldExciter : public CPlainPage {
    Q_OBJECT

public:
    CPageFieldExciter() : CPlainPage(137, QStringLiteral("12.htm")) {}
};

} // namespace krt550
