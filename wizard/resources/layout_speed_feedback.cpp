// Layouts 110, 10062 and 10063: the speed feedback assistant of step 5 and its two tabs.
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
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
                               .step = 14,
                               .bottom = 2};
constexpr int kGap = 1;

constexpr LayoutRow kGeneral[] = {{5003, "Motor 1 speed feedback selector", LayoutRowKind::List},
                                  {2001, "Motor 1 minimum speed"},
                                  {2002, "Motor 1 maximum speed"}};
constexpr LayoutRow kEmf[] = {{9902, "Motor 1 nominal voltage"}, {9904, "Motor 1 base speed"}};
constexpr LayoutRow kEncoder[] = {{5004, "Motor 1 pulse encoder pulses per turn"},
                                  {5002, "Motor 1 pulse encoder evaluation", LayoutRowKind::List}};
constexpr LayoutRow kTacho[] = {{5013, "Motor 1 tacho voltage at 1000 rpm"}};

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

DialogLayout SpeedFeedbackLayout() {
    CLayoutBuilder layout(110, kPageWidth, kPageHeight);
    layout.Add({.id = kIdTabPlaceholder, .kind = ControlKind::Placeholder, .rect = {11, 8, 10, 10}});
    const RowColumns& columns = kStyle.columns;
    constexpr int kTop = 235;
    constexpr int kShift = 8; // in line with the columns of the tabs
    layout.Group(0, {7, kTop, 491, 45}, Caption("Changed parameters"));
    layout.Add({.id = ActualHeadingId(0),
                .rect = {columns.value + kShift, kTop, columns.valueWidth, 10},
                .text = StringTableText(223).value_or(QString())});
    layout.Add({.id = UnitHeadingId(0),
                .rect = {columns.unit + kShift, kTop, columns.unitWidth, 10},
                .text = StringTableText(224).value_or(QString())});
    int y = kTop + 11;
    for (const auto& [row, label] : {std::pair{kIdShownReference, "Speed reference"},
                                     {kIdShownEmf, "Speed actual EMF"},
                                     {kIdShownSpeed, "Speed actual"}}) {
        AddLabel(layout, row, {columns.label + kShift, y, columns.labelWidth, 10}, label);
        layout.Add({.id = row + kShownValue, .rect = {columns.value + kShift, y, columns.valueWidth, 10}});
        layout.Add({.id = row + kShownUnit, .rect = {columns.unit + kShift, y, columns.unitWidth, 10}});
        y += 11;
    }
    layout.Add({.id = kIdNotice,
                .kind = ControlKind::WrappedText,
                .rect = {columns.minimum + kShift, kTop + 8, columns.maximum + columns.limitWidth - columns.minimum, 36},
                .bold = true});
    return layout.BottomRow(true).Take();
}

DialogLayout SpeedFeedbackAutoLayout() {
    CLayoutBuilder layout(10063, kTabWidth, kTabHeight, StringTableText(44).value_or(QString()));
    int y = layout.RowGroup(0, 1, Caption("Set general parameters"), kGeneral, kStyle) + kGap;
    y = layout.RowGroup(1, y, Caption("Set EMF speed feedback"), kEmf, kStyle) + kGap;
    y = layout.RowGroup(2, y, Caption("Set pulse encoder speed feedback"), kEncoder, kStyle) + kGap;

    layout.Group(3, {kStyle.x, y, kStyle.width, 26}, Caption("Test speed feedback"));
    AddLabel(layout, kIdAutotuningLabel, {10, y + 10, 60, 14}, "Test:");
    AddButton(layout, kIdAutotuningStart, {192, y + 10, 60, 14}, StringTableText(20).value_or(QString()));
    layout.Add({.id = kIdAutotuningProgress,
                .kind = ControlKind::ProgressBar,
                .rect = {258, y + 10, 150, 14},
                .name = QStringLiteral("Progress of the test")});
    AddButton(layout, kIdAutotuningDiagnosis, {418, y + 10, 60, 14}, Caption("Diagnosis"));
    y += 26 + kGap;

    RowGroupStyle style = kStyle;
    style.bottom = 25; // for the row of the hand-held tacho, whose column has a heading of its own
    const int bottom = layout.RowGroup(4, y, Caption("Analog tacho speed feedback"), kTacho, style);
    const RowColumns& columns = kStyle.columns;
    AddLabel(layout, kIdHandTachoHeading, {columns.value, bottom - 25, 150, 9}, "Speed act. hand held tacho");
    layout.Add({.id = LabelId(5012),
                .rect = {columns.label, bottom - 16, columns.labelWidth, 14},
                .text = Caption("Tacho fine tuning (speed act. measured with hand held tacho)"),
                .buddy = ValueId(5012)});
    layout.Add({.id = ValueId(5012),
                .kind = ControlKind::Edit,
                .rect = {columns.value, bottom - 16, columns.valueWidth, 14},
                .reg = 5012});
    layout.Add({.id = UnitId(5012), .rect = {columns.unit, bottom - 16, columns.unitWidth, 14}});
    return layout.Take();
}

DialogLayout TachoManualLayout() {
    CLayoutBuilder layout(10062, kTabWidth, kTabHeight, StringTableText(47).value_or(QString()));
    int y = layout.RowGroup(0, 1, Caption("Set general parameters"), kGeneral, kStyle) + kGap;
    y = layout.RowGroup(1, y, Caption("Set EMF speed feedback"), kEmf, kStyle) + kGap;

    layout.Group(2, {kStyle.x, y, kStyle.width, 29}, Caption("Turn motor in Local or Remote mode"));
    AddImageButton(layout, kIdLocalOrRemote, 10, y + 12, "LocalorRemote");
    AddImageButton(layout, kIdCloseContactor, 46, y + 12, "CloseContactor");
    AddImageButton(layout, kIdStartMotor, 68, y + 12, "StartMotor");
    AddImageButton(layout, kIdStopMotor, 90, y + 12, "StopMotor");
    AddImageButton(layout, kIdOpenContactor, 112, y + 12, "OpenContactor");
    layout.Add({.id = kIdReferenceLabel,
                .rect = {170, y + 12, 84, 14},
                .text = Caption("Speed reference"),
                .buddy = kIdReference});
    layout.Add({.id = kIdReference, .kind = ControlKind::Edit, .rect = {258, y + 12, 60, 14}});
    AddImageButton(layout, kIdSetNewReference, 324, y + 12, "SetNewReference");
    y += 29 + kGap;

    RowGroupStyle style = kStyle;
    style.bottom = 44; // for the rows below, which have no unit or no limits
    const int top = layout.RowGroup(3, y, Caption("Analog tacho speed feedback"), kTacho, style) - 44;
    const RowColumns& columns = kStyle.columns;
    layout.DisplayRow(425, Caption("Tacho input range"), top, columns, 150);
    AddLabel(layout, kIdAdjustHeading, {columns.label, top + 14, columns.labelWidth, 14}, "Adjust analog tacho");
    AddLabel(layout, kIdStepUpLabel, {columns.value, top + 14, 62, 14}, "Adjust step UP");
    AddImageButton(layout, kIdStepUp, 324, top + 14, "StepUp");
    AddLabel(layout, kIdStepDownLabel, {columns.minimum, top + 14, 74, 14}, "Adjust step DOWN");
    AddImageButton(layout, kIdStepDown, 436, top + 14, "StepDown");
    layout.Add({.id = LabelId(8827),
                .rect = {columns.label, top + 28, columns.labelWidth, 14},
                .text = Caption("Analogue tacho adjust"),
                .buddy = ValueId(8827)});
    layout.Add({.id = ValueId(8827),
                .kind = ControlKind::Edit,
                .rect = {columns.value, top + 28, columns.valueWidth, 14},
                .reg = 8827});
    layout.Add({.id = MinimumId(8827), .rect = {columns.minimum, top + 28, columns.limitWidth, 14}});
    return layout.Add({.id = MaximumId(8827), .rect = {columns.maximum, top + 28, columns.limitWidth, 14}}).Take();
}

} // namespace krt550
