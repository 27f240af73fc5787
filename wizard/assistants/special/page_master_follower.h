#pragma once

#include "wizard/assistants/special/tab_page_mail_box.h"
#include "wizard/shell/row_page.h"

#include <array>

namespace krt550 {

/// The drive-to-drive link: the drive's node and its four mailboxes.
class CPageMasterFollowerDriveToDrive : public CRowPage {
public:
    CPageMasterFollowerDriveToDrive();

private:
    std::array<CTabPageMailBox, 4> m_mailBoxes;
};

} // namespace krt550
