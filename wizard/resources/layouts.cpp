#include "wizard/resources/layouts.h"

namespace krt550 {
namespace {

struct FullLayout {
    int number;
    DialogLayout (*make)();
};

constexpr FullLayout kFullLayouts[] = {
    {59, AnalogueInputsLayout},
    {100, NamePlateLayout},
    {101, MacroLayout},
    {103, FieldCurrentLayout},
    {104, ArmatureLayout},
    {107, StartPageLayout},
    {110, SpeedFeedbackLayout},
    {111, SpeedControllerLayout},
    {112, FieldWeakeningLayout},
    {122, DiagnosisLayout},
    {133, ProtectionLayout},
    {134, TerminalsLayout},
    {135, EStopLayout},
    {136, FieldReversalLayout},
    {137, FieldExciterLayout},
    {138, MasterFollowerLayout},
    {139, TwelvePulseLayout},
    {140, AnalogueOutputsLayout},
    {141, DigitalTerminalsLayout},
    {142, DigitalInputConnectionsLayout},
    {143, AnalogueInputConnectionsLayout},
    {144, ProtectionsTabLayout},
    {145, LimitsTabLayout},
    {146, SerialCommunicationLayout},
    {147, ConfigurableLayout},
    {148, MailBoxTabLayout},
    {149, TwelvePulseCommonLayout},
    {150, TwelvePulseProtectionsLayout},
    {7118, FieldbusTabLayout},
    {7119, DatasetTabLayout},
    {10000, RowHelpLayout},
    {10056, SpeedGeneralTabLayout},
    {10057, SpeedFiltersTabLayout},
    {10058, SpeedLimitsTabLayout},
    {10062, TachoManualLayout},
    {10063, SpeedFeedbackAutoLayout},
};

} // namespace

std::optional<DialogLayout> LayoutOfNumber(int number) {
    for (const FullLayout& layout : kFullLayouts)
        if (layout.number == number)
            return layout.make();
    return std::nullopt;
}

} // namespace krt550
