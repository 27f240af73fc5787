#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Step 2: application macro. Without rows so far.
class CPageMacroAssistant : public CPlainPage {
    Q_OBJECT

public:
    CPageMacroAssistant() : CPlainPage(101, QStringLiteral("2.htm")) {}
};

} // namespace krt550
