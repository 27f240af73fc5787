#pragma once

#include "wizard/assistants/wiring_dialogs/connections.h"

namespace krt550 {

/// "DI settings": what one digital input (1 to 8) is connected to.
class CDialogDIConnections : public CDialogConnections {
public:
    CDialogDIConnections(QWidget* opener, int input, CParameterGroup* root, const ConnectionChange& pending)
        : CDialogConnections(142, opener, InputKind::Digital, input, root, pending) {}
};

} // namespace krt550
