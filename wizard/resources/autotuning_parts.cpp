#include "wizard/resources/autotuning_parts.h"

#include "wizard/resources/control_ids.h"
#include "wizard/resources/string_table.h"

namespace krt550 {

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
