#include "wizard/resources/autotuning_parts.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kHeadingHeight = 20;
constexpr int kListWidth = 160;
constexpr int kFirstPictureId = 60011;

void AddDisplayRow(CLayoutBuilder& layout, const AutotuningRow& row, int y) {
    constexpr RowColumns columns = kAutotuningColumns;
    layout.Add({.id = LabelId(row.reg),
                .rect = {columns.label, y, columns.labelWidth, 14},
                .text = QString::fromLatin1(row.label)});
    layout.Add({.id = ValueId(row.reg), .rect = {columns.value, y, 230, 14}, .reg = row.reg});
}

} // namespace

void AddAutotuningPictures(CLayoutBuilder& layout, std::span<const int> pictures) {
    const int count = static_cast<int>(pictures.size());
    const int height = (272 - 6 * (count - 1)) / count;
    for (int i = 0; i < count; ++i)
        layout.Add({.id = kFirstPictureId + i,
                    .kind = ControlKind::Picture,
                    .rect = {7, 6 + i * (height + 6), 102, height},
                    .picture = pictures[static_cast<std::size_t>(i)]});
}

int AddAutotuningRows(CLayoutBuilder& layout, int group, int y, const char* caption,
                      std::span<const AutotuningRow> rows, int step) {
    const int height = kHeadingHeight + static_cast<int>(rows.size()) * step + 6;
    layout.Group(group, {kAutotuningGroupX, y, kAutotuningGroupWidth, height}, QString::fromLatin1(caption));
    layout.Headings(group, y + 10, kAutotuningColumns);
    int rowY = y + kHeadingHeight + 2;
    for (const AutotuningRow& row : rows) {
        const QString label = QString::fromLatin1(row.label);
        if (row.kind == AutotuningRow::Kind::Edit)
            layout.EditRow(row.reg, label, rowY, kAutotuningColumns);
        else if (row.kind == AutotuningRow::Kind::List)
            layout.ListRow(row.reg, label, rowY, kAutotuningColumns, kListWidth);
        else
            AddDisplayRow(layout, row, rowY);
        rowY += step;
    }
    return y + height + 3;
}

void AddAutotuningRun(CLayoutBuilder& layout, int y) {
    layout.Add({.id = kIdAutotuningLabel, .rect = {122, y, 60, 14}, .text = QStringLiteral("Autotuning:")});
    layout.Add({.id = kIdAutotuningStart,
                .kind = ControlKind::PushButton,
                .rect = {186, y, 60, 14},
                .text = StringTableText(20).value_or(QString())});
    layout.Add({.id = kIdAutotuningProgress, .kind = ControlKind::ProgressBar, .rect = {262, y, 160, 14}});
    layout.Add({.id = kIdAutotuningDiagnosis,
                .kind = ControlKind::PushButton,
                .rect = {432, y, 60, 14},
                .text = QStringLiteral("Diagnosis")});
}

} // namespace krt550
