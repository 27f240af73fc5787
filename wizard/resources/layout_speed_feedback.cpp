// Layouts 110, 10062 and 10063: the speed feedback assistant of step 5 and its two tabs.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kTabWidth = 484;
constexpr int kTabHeight = 215;
constexpr int kListWidth = 130;

// The label of the tacho's fine tuning sets the width of the first column.
constexpr RowGroupStyle kStyle{.columns = {.label = 10,
                                           .labelWidth = 246,
                                           .value = 258,
                                           .valueWidth = 60,
                                           .unit = 324,
                                           .unitWidth = 30,
                                           .minimum = 358,
                                           .maximum = 420,
                                           .limitWidth = 58},
                               .x = 4,
                               .width = 476,
                               .listWidth = kListWidth,
                               .headings = 0,
                               .firstRow = 10,
                               .firstRowAlone = 10,
                               .step = 14,
                               .bottom = 2,
                               .gap = 1};
constexpr int kTop = 1;
constexpr int kTestHeight = 26;
constexpr int kTurnHeight = 29;

constexpr RowDef kGeneral[] = {{.reg = 5003, .kind = RowKind::List}, {.reg = 2001}, {.reg = 2002}};
constexpr RowDef kEmf[] = {{.reg = 9902}, {.reg = 9904}};
constexpr RowDef kEncoder[] = {{.reg = 5004}, {.reg = 5002, .kind = RowKind::List}};
constexpr RowDef kTachoAuto[] = {{.reg = 5013},
                                 // below a heading of its own
                                 {.reg = 5012,
                                  .label = "Tacho fine tuning (speed act. measured with hand held tacho)",
                                  .statics = StaticsShown::Unit,
                                  .above = 9}};
constexpr RowDef kTachoManual[] = {
    {.reg = 5013},
    {.reg = 425, .kind = RowKind::Display, .numbered = false, .whenMissing = WhenMissing::Hide},
    // below the buttons for the steps
    {.reg = 8827, .statics = StaticsShown::Limits, .above = 14}};

/// A speed that the page shows below its tabs.
constexpr RowDef Shown(quint16 reg, const char* label, int labelId) {
    return {.reg = reg,
            .kind = RowKind::Display,
            .label = label,
            .statics = StaticsShown::Unit,
            .numbered = false,
            .ids = {.label = labelId, .value = labelId + kShownValue, .unit = labelId + kShownUnit}};
}

constexpr RowDef kShown[] = {Shown(218, "Speed reference", kIdShownReference),
                             Shown(102, "Speed actual EMF", kIdShownEmf),
                             Shown(0, "Speed actual", kIdShownSpeed)}; // that of the feedback in use

constexpr RowGroupDef kShownGroups[] = {{.caption = "Changed parameters", .rows = kShown}};
constexpr RowGroupDef kGeneralGroup{.caption = "Set general parameters", .rows = kGeneral};
constexpr RowGroupDef kEmfGroup{.caption = "Set EMF speed feedback", .rows = kEmf};
constexpr RowGroupDef kAutoGroups[] = {kGeneralGroup,
                                       kEmfGroup,
                                       {.caption = "Set pulse encoder speed feedback", .rows = kEncoder},
                                       {.caption = "Analog tacho speed feedback", .rows = kTachoAuto}};
constexpr RowGroupDef kManualGroups[] = {
    kGeneralGroup, kEmfGroup, {.caption = "Analog tacho speed feedback", .rows = kTachoManual}};
static_assert(IsSound(kShownGroups) && IsSound(kAutoGroups) && IsSound(kManualGroups));

QString Caption(const char* text) {
    return QString::fromLatin1(text);
}

void AddButton(CLayoutBuilder& layout, int id, const DialogRect& rect, const QString& text) {
    layout.Add({.id = id, .kind = ControlKind::PushButton, .rect = rect, .text = text, .mnemonic = true});
}

void AddImageButton(CLayoutBuilder& layout, int id, int x, int y, const char* name) {
    layout.Add({.id = id, .kind = ControlKind::Custom, .rect = {x, y, 18, 13}, .text = QString::fromLatin1(name)});
}

void AddLabel(CLayoutBuilder& layout, int id, const DialogRect& rect, const char* text) {
    layout.Add({.id = id, .rect = rect, .text = QString::fromLatin1(text)});
}

} // namespace

constinit const PageRows kSpeedFeedbackRows{.layout = 110, .groups = kShownGroups};
constinit const PageRows kSpeedFeedbackAutoRows{.layout = 10063, .groups = kAutoGroups};
constinit const PageRows kTachoManualRows{.layout = 10062, .groups = kManualGroups};

DialogLayout SpeedFeedbackLayout() {
    CLayoutBuilder layout(110, kPageWidth, kPageHeight);
    layout.Add({.id = kIdTabPlaceholder, .kind = ControlKind::Placeholder, .rect = {11, 8, 10, 10}});
    const RowColumns& columns = kStyle.columns;
    constexpr int kShownTop = 235;
    constexpr int kShift = 8; // in line with the columns of the tabs
    layout.Group(0, {7, kShownTop, 491, 45}, Caption(kShownGroups[0].caption));
    layout.Add({.id = ActualHeadingId(0),
                .rect = {columns.value + kShift, kShownTop, columns.valueWidth, 10},
                .text = StringTableText(223).value_or(QString())});
    layout.Add({.id = UnitHeadingId(0),
                .rect = {columns.unit + kShift, kShownTop, columns.unitWidth, 10},
                .text = StringTableText(224).value_or(QString())});
    int y = kShownTop + 11;
    for (const RowDef& row : kShown) {
        AddLabel(layout, row.ids.label, {columns.label + kShift, y, columns.labelWidth, 10}, row.label);
        layout.Add({.id = row.ids.value, .rect = {columns.value + kShift, y, columns.valueWidth, 10}});
        layout.Add({.id = row.ids.unit, .rect = {columns.unit + kShift, y, columns.unitWidth, 10}});
        y += 11;
    }
    layout.Add(
        {.id = kIdNotice,
         .kind = ControlKind::WrappedText,
         .rect = {columns.minimum + kShift, kShownTop + 11, columns.maximum + columns.limitWidth - columns.minimum, 33},
         .bold = true});
    return layout.BottomRow(true).Take();
}

DialogLayout SpeedFeedbackAutoLayout() {
    CLayoutBuilder layout(10063, kTabWidth, kTabHeight, StringTableText(44).value_or(QString()));
    CRowStack stack(layout, kSpeedFeedbackAutoRows, kStyle, kTop, kTabHeight, kTestHeight + kStyle.gap);
    stack.AddGroups(3);
    const int y = stack.AddFrame(kTestHeight, Caption("Test speed feedback")) + 10;
    AddLabel(layout, kIdAutotuningLabel, {10, y, 60, 14}, "Test:");
    AddButton(layout, kIdAutotuningStart, {192, y, 60, 14}, StringTableText(20).value_or(QString()));
    layout.Add({.id = kIdAutotuningProgress,
                .kind = ControlKind::ProgressBar,
                .rect = {258, y, 150, 14},
                .name = QStringLiteral("Progress of the test")});
    AddButton(layout, kIdAutotuningDiagnosis, {418, y, 60, 14}, Caption("Diagnosis"));
    stack.AddGroup([&layout](int above) {
        AddLabel(layout, kIdHandTachoHeading, {kStyle.columns.value, above, 150, 9}, "Speed act. hand held tacho");
    });
    return layout.Take();
}

DialogLayout TachoManualLayout() {
    CLayoutBuilder layout(10062, kTabWidth, kTabHeight, StringTableText(47).value_or(QString()));
    CRowStack stack(layout, kTachoManualRows, kStyle, kTop, kTabHeight, kTurnHeight + kStyle.gap);
    stack.AddGroups(2);
    const int turn = stack.AddFrame(kTurnHeight, Caption("Turn motor in Local or Remote mode")) + 12;
    AddImageButton(layout, kIdLocalOrRemote, 10, turn, "LocalorRemote");
    AddImageButton(layout, kIdCloseContactor, 46, turn, "CloseContactor");
    AddImageButton(layout, kIdStartMotor, 68, turn, "StartMotor");
    AddImageButton(layout, kIdStopMotor, 90, turn, "StopMotor");
    AddImageButton(layout, kIdOpenContactor, 112, turn, "OpenContactor");
    layout.Add({.id = kIdReferenceLabel,
                .rect = {170, turn, 84, 14},
                .text = Caption("Speed reference"),
                .buddy = kIdReference});
    layout.Add({.id = kIdReference, .kind = ControlKind::Edit, .rect = {258, turn, 60, 14}});
    AddImageButton(layout, kIdSetNewReference, 324, turn, "SetNewReference");

    stack.AddGroup([&layout](int above) {
        const RowColumns& columns = kStyle.columns;
        AddLabel(layout, kIdAdjustHeading, {columns.label, above, columns.labelWidth, 14}, "Adjust analog tacho");
        AddLabel(layout, kIdStepUpLabel, {columns.value, above, 62, 14}, "Adjust step UP");
        AddImageButton(layout, kIdStepUp, 324, above, "StepUp");
        AddLabel(layout, kIdStepDownLabel, {columns.minimum, above, 74, 14}, "Adjust step DOWN");
        AddImageButton(layout, kIdStepDown, 436, above, "StepDown");
    });
    return layout.Take();
}

} // namespace krt550
