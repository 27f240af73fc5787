#include "wizard/resources/autotuning_parts.h"

#include "wizard/resources/control_ids.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kFirstPictureId = 60011;

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

void AddAutotuningRun(CLayoutBuilder& layout, int y) {
    layout.Add({.id = kIdAutotuningLabel, .rect = {122, y, 60, 14}, .text = QStringLiteral("Autotuning:")});
    layout.Add({.id = kIdAutotuningStart,
                .kind = ControlKind::PushButton,
                .rect = {186, y, 60, 14},
                .text = StringTableText(20).value_or(QString()),
                .mnemonic = true});
    layout.Add({.id = kIdAutotuningProgress,
                .kind = ControlKind::ProgressBar,
                .rect = {262, y, 160, 14},
                .name = QStringLiteral("Progress of the autotuning")});
    layout.Add({.id = kIdAutotuningDiagnosis,
                .kind = ControlKind::PushButton,
                .rect = {432, y, 60, 14},
                .text = QStringLiteral("Diagnosis"),
                .mnemonic = true});
}

} // namespace krt550
