#include "drive/service_reasons.h"

#include "drive/fault_codes.h"
#include "drive/register_file.h"
#include "drive/registers.h"
#include "drive/service_run.h"

#include <algorithm>
#include <iterator>

namespace krt550 {

quint16 DiagnosisOfFault(quint16 fault) {
    constexpr std::pair<quint16, quint16> kReasons[] = {
        {kFaultOvercurrent, diagnosis::kOvercurrent},
        {kFaultOvervoltage, diagnosis::kOvervoltage},
        {kFaultMains, diagnosis::kMains},
        {kFaultFieldLoss, diagnosis::kFieldLost},
        {kFaultOverspeed, diagnosis::kOverspeed},
        {kFaultOvertemperature, diagnosis::kOvertemperature},
        {kFaultFeedback, diagnosis::kFeedbackLost},
        {kFaultMainContactor, diagnosis::kContactor},
        {kFaultConnection, diagnosis::kToolSilent},
        {kFaultExternal, diagnosis::kExternal},
        {kFaultCurrentRise, diagnosis::kCurrentRise},
        {kFaultFieldOvercurrent, diagnosis::kFieldOvercurrent},
        {kFaultEarth, diagnosis::kEarth},
        {kFaultStall, diagnosis::kStalled},
        {kFaultMotorFan, diagnosis::kMotorFan},
        {kFaultConverterFan, diagnosis::kConverterFan},
        {kFaultPhaseMissing, diagnosis::kPhaseMissing},
        {kFaultPhaseOrder, diagnosis::kPhaseOrder},
        {kFaultRipple, diagnosis::kRipple},
    };
    const auto* const found = std::ranges::find(kReasons, fault, &std::pair<quint16, quint16>::first);
    return found == std::end(kReasons) ? diagnosis::kTripped : found->second;
}

quint16 DiagnosisOfResults(const std::vector<std::pair<quint16, double>>& results, const CRegisterFile& registers) {
    constexpr std::pair<quint16, quint16> kReasons[] = {
        {reg::kFieldTime, diagnosis::kFieldTooSlow},
        {reg::kArmatureInductance, diagnosis::kInductanceTooLarge},
        {reg::kArmatureResistance, diagnosis::kResistanceTooLarge},
        {reg::kInertia, diagnosis::kInertiaTooLarge},
    };
    for (const auto& [reg, number] : results)
        for (const auto& [limited, code] : kReasons)
            if (const auto* parameter = registers.FindDescription(reg); parameter && reg == limited)
                if (parameter->maximum > parameter->minimum && number > parameter->maximum)
                    return code;
    return diagnosis::kNone;
}

} // namespace krt550
