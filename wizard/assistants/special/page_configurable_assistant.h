#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// The page that a text file defines. Without rows so far.
class CPageConfigurableAssistant : public CPlainPage {
    Q_OBJECT

public:
    CPageConfigurableAssistant() : CPlainPage(147, QStringLiteral("16.htm")) {}
};

} // namespace krt550
