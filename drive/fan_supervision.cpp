#include "drive/fan_supervision.h"

#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"

namespace krt550 {

Findings CFanSupervision::Step(double seconds, bool contactorClosed, const CRegisterFile& registers) {
    constexpr struct {
        quint16 reaction, input, code;
    } kFans[] = {{reg::kMotorFanReaction, reg::kMotorFanInput, kFaultMotorFan},
                 {reg::kConverterFanReaction, reg::kConverterFanInput, kFaultConverterFan}};
    const double delay = registers.GetNumber(reg::kFanDelay, 10);
    Findings found;
    for (std::size_t i = 0; i < m_fans.size(); ++i) {
        const bool missing = m_fans[i].lost && contactorClosed && registers.GetWord(kFans[i].input) != 0;
        m_fans[i].missing = missing ? m_fans[i].missing + seconds : 0;
        if (missing && m_fans[i].missing >= delay)
            found.Add(kFans[i].code, static_cast<Reaction>(registers.GetWord(kFans[i].reaction)));
    }
    return found;
}

} // namespace krt550
