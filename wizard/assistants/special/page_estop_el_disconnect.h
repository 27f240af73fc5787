#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Emergency stop and electrical disconnect. Without rows so far.
class CPageEStopElDisconnect : public CPlainPage {
    Q_OBJECT

public:
    CPageEStopElDisconnect() : CPlainPage(135, QStringLiteral("10.htm")) {}
};

} // namespace krt550
