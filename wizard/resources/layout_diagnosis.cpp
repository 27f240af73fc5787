// Layout 122: the diagnosis dialog.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

struct Row {
    int label;
    int text; ///< string number
    int value;
    int unit;
};

constexpr Row kRows[] = {
    {582, 362, 434, 375}, {580, 569, 427, 584}, {581, 570, 428, 585}, {340, 363, 436, 382},
    {562, 364, 442, 388}, {348, 365, 445, 395}, {566, 566, 449, 402}, {356, 366, 453, 409},
    {569, 367, 458, 413}, {361, 567, 462, 417}, {572, 568, 464, 422},
};
constexpr int kCloseButton = 2;

} // namespace

DialogLayout DiagnosisLayout() {
    CLayoutBuilder layout(122, 259, 246, QStringLiteral("Diagnosis"));
    layout.Group(0, {7, 5, 245, 214}, QStringLiteral("Fault record of last fault"));
    layout.Add({.id = ActualHeadingId(0), .rect = {124, 15, 80, 10}, .text = QStringLiteral("Actual")});
    layout.Add({.id = UnitHeadingId(0), .rect = {218, 15, 30, 10}, .text = QStringLiteral("Unit")});
    int y = 28;
    for (const Row& row : kRows) {
        // The diagnosis is a sentence: it gets three lines.
        const bool isLast = &row == std::end(kRows) - 1;
        const int height = isLast ? 28 : 12;
        layout.Add({.id = row.label, .rect = {14, y, 106, 12}, .text = StringTableText(row.text).value_or(QString())});
        layout.Add({.id = row.value,
                    .kind = isLast ? ControlKind::WrappedText : ControlKind::Label,
                    .rect = {124, y + (isLast ? 1 : 0), 90, height}});
        layout.Add({.id = row.unit, .rect = {218, y, 30, 12}});
        y += 16;
    }
    layout.Add({.id = kIdHelp,
                .kind = ControlKind::PushButton,
                .rect = {7, 226, 50, 14},
                .text = StringTableText(30).value_or(QString()),
                .mnemonic = true});
    layout.Add({.id = kCloseButton,
                .kind = ControlKind::DefaultButton,
                .rect = {202, 226, 50, 14},
                .text = StringTableText(35).value_or(QString()),
                .mnemonic = true});
    return layout.Take();
}

} // namespace krt550
