#pragma once

namespace krt550 {

/// Ids of the controls that several windows share.
enum ControlId : int {
    kIdCloseDialog = 1, ///< writes and closes; OK where there is one
    kIdCancelDialog = 2,
    kIdCancelPage = 91,
    kIdHelp = 93,
    kIdNext = 95,
    kIdBack = 96,
    kIdApply = 98,
    kIdReset = 99,
    kIdStepsDoneGroup = 60001,
    kIdStepsDoneLabel = 163,
    // Of the macro assistant.
    kIdMacroView = 60041, ///< the basic or the advanced view
    kIdMacroDescriptionLabel = 60042,
    kIdMacroDescription = 60043,
    kIdFirstDependentRow = 61500, ///< label of the first row; the next row is 10 further
    // Of the autotuning pages.
    kIdAutotuningLabel = 60201,
    kIdAutotuningStart = 60202,
    kIdAutotuningProgress = 60203,
    kIdAutotuningDiagnosis = 60204,
    // Of the field reversal assistant, beside those.
    kIdFieldForward = 60205,
    kIdFieldReverse = 60206,
    kIdFieldStop = 60207,
    kIdActualConverterLabel = 60208,
    kIdActualConverter = 60209,
    // Of the speed controller's autotuning page.
    kIdSpeedResponse = 60211,
    kIdSpeedResponseSlow = 60212,
    kIdSpeedResponseNormal = 60213,
    kIdSpeedResponseFast = 60214,
    kIdTabPlaceholder = 60221, ///< where a page has its tabs
    // Of the speed feedback assistant: label ids of the three values that it shows.
    kIdShownReference = 60310,
    kIdShownEmf = 60320,
    kIdShownSpeed = 60330,
    kIdHandTachoHeading = 60340,
    kIdNotice = 60341, ///< what the page says while no box may be shown
    // Of its tab to turn the motor by hand.
    kIdLocalOrRemote = 8312,
    kIdStartMotor = 60351,
    kIdStopMotor = 60352,
    kIdCloseContactor = 60353,
    kIdOpenContactor = 60354,
    kIdSetNewReference = 60355,
    kIdStepUp = 60356,
    kIdStepDown = 60357,
    kIdReference = 60360,
    kIdReferenceLabel = 60361,
    kIdAdjustHeading = 60362,
    kIdStepUpLabel = 60363,
    kIdStepDownLabel = 60364,
    kIdSpeedScalingGroup = 60401, ///< of the settings of analogue inputs and outputs
    kIdConnectionList = 60402,    ///< of a connection picker
    // Tabs of the protection and limit assistant and of the 12-pulse assistant.
    kIdProtectionTabs = 940,
    kId12PulseTabs = 995,
    // Of the E-stop assistant: the proposed delays of its relays.
    kIdEStopDelayLabel = 60371,
    kIdEStopDelay = 957,
    kIdEStopDelayUnit = 958,
    kIdDisconnectDelayLabel = 60372,
    kIdDisconnectDelay = 961,
    kIdDisconnectDelayUnit = 962,
    // Of the field exciter assistant.
    kIdExciterType = 972,
    kIdAttention = 8270,
    kIdAttentionText = 60381,
    kIdLinkStatusLabel = 60382,
    kIdLinkStatus = 970,
    // Of the configurable assistant, and of the window with a row's help.
    kIdConfigurableGroup = 60391,
    kIdHelpText = 60392,
    // Of the serial communication assistant and of the master-follower assistant.
    kIdFieldbusDefaults = 60393,
    kIdMailBoxPicture = 60394,
    kIdActualHeading = 60395, ///< of the rows that point to parameters
    kIdUnitHeading = 60396,
    kIdMailBoxLabel = 60960, ///< of the row of a mailbox's ID
    kIdMailBoxId,
    kIdMailBoxUnit,
    kIdMailBoxMinimum,
    kIdMailBoxMaximum
};

/// Rows of the configurable assistant: 1 to 20 edits on the left, 21 to 40 drop-downs on the right.
inline constexpr int kConfigurableRowCount = 40;
inline constexpr int kConfigurableEdits = 20;
/// Ids of the controls of its row n.
constexpr int ConfigurableLabelId(int n) {
    return 60800 + n;
}
constexpr int ConfigurableValueId(int n) {
    return 60850 + n;
}
constexpr int ConfigurableHelpId(int n) {
    return 60900 + n;
}

/// Controls of one analogue input or output, from the id of its first one.
enum ChannelControl : int {
    kChannelConnection, ///< name of what the input is connected to
    kChannelEdit,       ///< opens the connection picker
    kChannelFrame,      ///< around the actual values
    kChannelConvertedLabel,
    kChannelConverted,
    kChannelConvertedUnit,
    kChannelHeading, ///< "Index"
    kChannelChoice,  ///< names of what the output can carry
    kChannelView     ///< "Advanced" or "Basic"
};
/// Id of a control of channel `number` (from 1).
constexpr int ChannelId(int number, ChannelControl control) {
    return 60400 + 10 * number + control;
}

/// From the label of one of the values that the speed feedback assistant shows to its value and its unit.
inline constexpr int kShownValue = 1;
inline constexpr int kShownUnit = 2;

/// Rows of the macro assistant for the parameters that depend on the macro.
inline constexpr int kDependentRows = 6;

/// Ids of the digits of steps 1 to 7, in order.
inline constexpr int kStepIconIds[7] = {151, 152, 157, 153, 154, 155, 156};

/// Ids of the column headings of the k-th group of rows on a page (k from 0), and of the group box around it.
constexpr int GroupId(int k) {
    return 60100 + 10 * k;
}
constexpr int ActualHeadingId(int k) {
    return GroupId(k) + 1;
}
constexpr int UnitHeadingId(int k) {
    return GroupId(k) + 2;
}
constexpr int MinimumHeadingId(int k) {
    return GroupId(k) + 3;
}
constexpr int MaximumHeadingId(int k) {
    return GroupId(k) + 4;
}

} // namespace krt550
