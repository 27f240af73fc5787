#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Inputs and outputs. Without rows so far.
class CPageIOAssistant : public CPlainPage {
    Q_OBJECT

public:
    CPageIOAssistant() : CPlainPage(134, QStringLiteral("8.htm")) {}
};

} // namespace krt550
