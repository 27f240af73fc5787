#pragma once

#include "wizard/platform/dialog_layout.h"

#include <optional>

namespace krt550 {

/// One function for each dialog layout that is more than its bottom row.
DialogLayout AnalogueInputsLayout();           ///< 59
DialogLayout NamePlateLayout();                ///< 100
DialogLayout MacroLayout();                    ///< 101
DialogLayout FieldCurrentLayout();             ///< 103
DialogLayout ArmatureLayout();                 ///< 104
DialogLayout StartPageLayout();                ///< 107
DialogLayout SpeedFeedbackLayout();            ///< 110
DialogLayout SpeedControllerLayout();          ///< 111
DialogLayout FieldWeakeningLayout();           ///< 112
DialogLayout DiagnosisLayout();                ///< 122
DialogLayout ProtectionLayout();               ///< 133
DialogLayout TerminalsLayout();                ///< 134
DialogLayout EStopLayout();                    ///< 135
DialogLayout FieldReversalLayout();            ///< 136
DialogLayout FieldExciterLayout();             ///< 137
DialogLayout MasterFollowerLayout();           ///< 138
DialogLayout TwelvePulseLayout();              ///< 139
DialogLayout AnalogueOutputsLayout();          ///< 140
DialogLayout DigitalTerminalsLayout();         ///< 141
DialogLayout DigitalInputConnectionsLayout();  ///< 142
DialogLayout AnalogueInputConnectionsLayout(); ///< 143
DialogLayout SerialCommunicationLayout();      ///< 146
DialogLayout ConfigurableLayout();             ///< 147
DialogLayout RowHelpLayout();                  ///< 10000

/// Tabs.
DialogLayout SpeedGeneralTabLayout();        ///< 10056
DialogLayout SpeedFiltersTabLayout();        ///< 10057
DialogLayout SpeedLimitsTabLayout();         ///< 10058
DialogLayout TachoManualLayout();            ///< 10062
DialogLayout SpeedFeedbackAutoLayout();      ///< 10063
DialogLayout ProtectionsTabLayout();         ///< 144
DialogLayout LimitsTabLayout();              ///< 145
DialogLayout MailBoxTabLayout();             ///< 148
DialogLayout TwelvePulseCommonLayout();      ///< 149
DialogLayout TwelvePulseProtectionsLayout(); ///< 150
DialogLayout FieldbusTabLayout();            ///< 7118
DialogLayout DatasetTabLayout();             ///< 7119

/// Layout by number.
std::optional<DialogLayout> LayoutOfNumber(int number);

} // namespace krt550
