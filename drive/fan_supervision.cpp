#include "drive/fan_supervision.h"

#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"

namespace krt550 {

Findings CFanSupervision::Step(double seconds, bool contactorClosed, const std::array<bool, 2>& acknowledged,
                               const CRegisterFile& registers) {
    constexpr struct {
        quint16 reaction, code;
    } kFans[] = {{reg::kMotorFanReaction, kFaultMotorFan}, {reg::kConverterFanReaction, kFaultConverterFan}};
    const double delay = registers.GetNumber(reg::kFanDelay, 10);
    Findings found;
    for (std::size_t i = 0; i < m_fans.size(); ++i) {
        const bool missing = contactorClosed && !acknowledged[i];
        m_fans[i].missing = missing ? m_fans[i].missing + seconds : 0;
        if (missing && m_fans[i].missing >= delay)
            found.Add(kFans[i].code, static_cast<Reaction>(registers.GetWord(kFans[i].reaction)));
    }
    return found;
}

} // namespace krt550
