#pragma once

#include "wizard/shell/plain_page.h"

namespace krt550 {

/// Master-follower and drive-to-drive links. Without rows so far.
class CPageMasterFollowerDriveToDrive : public CPlainPage {
    Q_OBJECT

public:
    CPageMasterFollowerDriveToDrive() : CPlainPage(138, QStringLiteral("13.htm")) {}
};

} // namespace krt550
