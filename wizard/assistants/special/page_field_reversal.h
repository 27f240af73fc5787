#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Field reversal. Without rows so far.
class CPageFieldReversal : public CPlainPage {
    Q_OBJECT

public:
    CPageFieldReversal() : CPlainPage(136, QStringLiteral("11.htm")) {}
};

} // namespace krt550
