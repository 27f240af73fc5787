#include "wizard/wiring/status_bits.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"

namespace krt550 {

bool ShowStatusBits(CParameter* parameter, std::span<QWidget* const> statics) {
    const bool read = ReadParameter(parameter);
    for (std::size_t bit = 0; bit < statics.size(); ++bit) {
        const bool set = read && (parameter->GetValue() >> bit & 1) != 0;
        SetControlText(statics[bit], !read ? QString() : set ? QStringLiteral("1") : QStringLiteral("0"));
    }
    return read || !parameter;
}

} // namespace krt550
