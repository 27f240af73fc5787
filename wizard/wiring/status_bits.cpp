#include "wizard/wiring/status_bits.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/platform/control_text.h"

namespace krt550 {

void ShowStatusBits(const CParameter* parameter, bool read, std::span<QWidget* const> statics) {
    for (std::size_t bit = 0; bit < statics.size(); ++bit) {
        const QString state = parameter && read ? QString::number(parameter->GetActualValue() >> bit & 1) : QString();
        SetControlText(statics[bit], state);
    }
}

} // namespace krt550
