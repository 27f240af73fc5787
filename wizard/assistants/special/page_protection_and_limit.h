#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Protections and limits. Without rows so far.
class CPageProtectionAndLimit : public CPlainPage {
    Q_OBJECT

public:
    CPageProtectionAndLimit() : CPlainPage(133, QStringLiteral("9.htm")) {}
};

} // namespace krt550
