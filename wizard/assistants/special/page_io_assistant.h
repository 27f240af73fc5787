#pragma once

#include "wizard/assistants/basic/page_macro_assistant.h"

namespace krt550 {

/// What the terminals are connected to, without the macro. The settings are edited and applied in dialogs of their own.
class CPageIOAssistant : public CPageMacroAssistant {
public:
    CPageIOAssistant();

protected:
    bool OnInitDialog() override;
};

} // namespace krt550
