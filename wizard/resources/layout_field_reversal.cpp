// Layout 136: the field reversal assistant.
#include "wizard/resources/autotuning_parts.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kActualHeight = 16;

constexpr RowDef kGeneral[] = {
    {.reg = 9912, .kind = RowKind::List},
    // below the exciter that the drive has found
    {.reg = 4401, .kind = RowKind::List, .above = kActualHeight},
    {.reg = 4316, .kind = RowKind::List},
    {.reg = 4510},
    {.reg = 4511},
};
constexpr RowDef kMonitoring[] = {{.reg = 4508}, {.reg = 4518}, {.reg = 3012}};
constexpr RowDef kFeedback[] = {
    {.reg = 330, .kind = RowKind::Display, .statics = StaticsShown::Unit, .refreshed = true},
    {.reg = 129, .kind = RowKind::Display, .statics = StaticsShown::Unit, .refreshed = true},
};
constexpr RowGroupDef kGroups[] = {{.caption = "Set general parameters", .rows = kGeneral},
                                   {.caption = "Set monitoring field loss", .rows = kMonitoring},
                                   {.caption = "Field current feedback", .headings = false, .rows = kFeedback}};
static_assert(IsSound(kGroups));

void AddTest(CLayoutBuilder& layout, int y) {
    layout.Add({.id = kIdAutotuningLabel, .rect = {kPageColumns.label, y, 30, 14}, .text = QStringLiteral("Test:")});
    const struct {
        int id;
        QString text;
    } buttons[] = {{kIdAutotuningStart, StringTableText(20).value_or(QString())},
                   {kIdFieldForward, QStringLiteral("Forward")},
                   {kIdFieldReverse, QStringLiteral("Reverse")},
                   {kIdFieldStop, QStringLiteral("Stop")},
                   {kIdAutotuningDiagnosis, QStringLiteral("Diagnosis")}};
    constexpr int kStep = 69;
    int x = 156;
    for (const auto& [id, text] : buttons) {
        // Alt+S is Start's.
        layout.Add({.id = id,
                    .kind = ControlKind::PushButton,
                    .rect = {x, y, 60, 14},
                    .text = text,
                    .mnemonic = id != kIdFieldStop});
        x += kStep;
    }
}

} // namespace

constinit const PageRows kFieldReversalRows{.layout = 136, .groups = kGroups};

DialogLayout FieldReversalLayout() {
    static constexpr int kPictures[] = {10030};
    CLayoutBuilder layout(136, kPageWidth, kPageHeight);
    layout.Pictures(kPictures);
    CRowStack stack(layout, kFieldReversalRows, kPageStyle, kRowsTop, kRowsBottom,
                    kAutotuningRunHeight + kPageStyle.gap);
    stack.AddGroup([&](int above) {
        layout.Add({.id = kIdActualConverterLabel,
                    .rect = {kPageColumns.label, above, kPageColumns.labelWidth, 12},
                    .text = QStringLiteral("Actual converter")});
        layout.Add({.id = kIdActualConverter,
                    .kind = ControlKind::Custom,
                    .rect = {kPageColumns.value, above, kPageStyle.listWidth, 12}});
    });
    stack.AddGroup();
    const int test = stack.AddFrame(kAutotuningRunHeight, QStringLiteral("Test field reversal"));
    AddTest(layout, test + kAutotuningRunY);
    stack.AddGroup();
    return layout.BottomRow(false).Take();
}

} // namespace krt550
