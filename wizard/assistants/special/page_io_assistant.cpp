#include "wizard/assistants/special/page_io_assistant.h"

namespace krt550 {
namespace {

constexpr PageRows kTerminals{.layout = 134};

} // namespace

CPageIOAssistant::CPageIOAssistant() : CPageMacroAssistant(kTerminals, QStringLiteral("8.htm")) {}

bool CPageIOAssistant::OnInitDialog() {
    const bool result = CPageMacroAssistant::OnInitDialog();
    CConnectionOverview::HideNote(*this); // nothing waits for Apply here
    return result;
}

} // namespace krt550
