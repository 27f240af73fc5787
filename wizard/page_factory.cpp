#include "wizard/page_factory.h"

#include "wizard/assistants/basic/page_autotuning_armature.h"
#include "wizard/assistants/basic/page_autotuning_field_current.h"
#include "wizard/assistants/basic/page_autotuning_speed_controller.h"
#include "wizard/assistants/basic/page_field_weakening.h"
#include "wizard/assistants/basic/page_macro_assistant.h"
#include "wizard/assistants/basic/page_name_plate_data.h"
#include "wizard/assistants/basic/page_speed_feedback.h"
#include "wizard/assistants/special/page_12_pulse.h"
#include "wizard/assistants/special/page_configurable_assistant.h"
#include "wizard/assistants/special/page_estop_el_disconnect.h"
#include "wizard/assistants/special/page_field_exciter.h"
#include "wizard/assistants/special/page_field_reversal.h"
#include "wizard/assistants/special/page_io_assistant.h"
#include "wizard/assistants/special/page_master_follower.h"
#include "wizard/assistants/special/page_protection_and_limit.h"
#include "wizard/assistants/special/page_serial_communication.h"
#include "wizard/shell/page_wizard.h"
#include "wizard/shell/sheet_wizard.h"

namespace krt550 {
namespace {

template <class Page> std::unique_ptr<CWizardPropertyPage> Make() {
    return std::make_unique<Page>();
}

using Maker = std::unique_ptr<CWizardPropertyPage> (*)();

/// In page-index order.
constexpr Maker kPages[] = {
    Make<CPageWizard>,
    Make<CPageNamePlateData>,
    Make<CPageMacroAssistant>,
    Make<CPageAutotuningFieldCurrent>,
    Make<CPageAutotuningArmature>,
    Make<CPageSpeedFeedback>,
    Make<CPageAutotuningSpeedController>,
    Make<CPageFieldWeakening>,
    Make<CPageIOAssistant>,
    Make<CPageProtectionAndLimit>,
    Make<CPageEStopElDisconnect>,
    Make<CPageFieldReversal>,
    Make<CPageFieldExciter>,
    Make<CPageMasterFollowerDriveToDrive>,
    Make<CPage12Pulse>,
    Make<CPageSerialCommunication>,
    Make<CPageConfigurableAssistant>,
};
static_assert(std::size(kPages) == kPageCount);

} // namespace

void InstallPages() {
    SetPageFactory([](int index) { return kPages[index](); });
}

} // namespace krt550
