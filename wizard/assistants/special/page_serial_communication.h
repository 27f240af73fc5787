#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Serial communication. Without rows so far.
class CPageSerialCommunication : public CPlainPage {
    Q_OBJECT

public:
    CPageSerialCommunication() : CPlainPage(146, QStringLiteral("15.htm")) {}
};

} // namespace krt550
