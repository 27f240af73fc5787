#include "host/backup/keeping.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

struct Exception {
    quint16 first;
    quint16 last;
    Keeping keeping;
    const char* reason;
};

/// Writable parameters that a restore never writes. Everything else that can be written is restored.
constexpr Exception kExceptions[] = {
    {701, 705, Keeping::Left, "a command of this moment: it could start the motor"},
    {1502, 1502, Keeping::Left, "a value that comes over the fieldbus"},
    {1507, 1507, Keeping::Left, "a value that comes over the fieldbus"},
    {1601, 1602, Keeping::Shown, "the lock belongs to whoever has set it, and a locked drive takes no other value"},
    {1605, 1605, Keeping::Left, "a command: it saves the parameters"},
    {2301, 2301, Keeping::Left, "a reference that comes over the fieldbus"},
    {2304, 2304, Keeping::Left, "a correction that comes over the fieldbus"},
    {2501, 2501, Keeping::Left, "a reference that comes over the fieldbus"},
    {4501, 4501, Keeping::Left, "a reference that comes over the fieldbus"},
    {4507, 4507, Keeping::Left, "a command of the field reversal test"},
    {5005, 5005, Keeping::Left, "a speed that comes over the fieldbus"},
    {5129, 5129, Keeping::Left, "a command: it has the adapter take its settings over"},
    {5201, 5203, Keeping::Shown, "it could cut the line on which it is restored: set it by hand"},
    {9701, 9701, Keeping::Shown, "it belongs to the power part that is built in: set it by hand"},
    {9906, 9906, Keeping::Left, "a command: it starts a service mode"},
    {9907, 9907, Keeping::Left, "a command: it overwrites settings with those of a macro"},
};

/// Read-only parameters that say which drive it is: converter, firmware, nominal values, bridges.
constexpr quint16 kFirstIdentity = 401;
constexpr quint16 kLastIdentity = 405;

struct Stage {
    quint16 first;
    quint16 last;
    int stage;
};

constexpr int kUsualStage = 3;

constexpr Stage kStages[] = {
    // What is built in: nominal values of the converter bound the motor's, the fieldbus module gives group 51 its
    // meaning.
    {9702, 9802, 0},
    // What 100 % is: most limits, gains and references are shares of the motor's data.
    {9901, 9905, 1},
    {9909, 9913, 1},
    {5001, 5001, 1},
    // Limits and protections, before the values that they bound.
    {2001, 2019, 2},
    {3001, 3108, 2},
    // Which source counts, behind the values that can be chosen, and which words go where.
    {1001, 1020, 4},
    {1101, 1105, 4},
    {1108, 1108, 4},
    {1201, 1203, 4},
    {2503, 2503, 4},
    {2601, 2601, 4},
    {4302, 4302, 4},
    {9001, 9212, 4},
    {9412, 9435, 4},
    // The macro's name, once its settings are there. It loads nothing: 99.07 does.
    {9908, 9908, 5},
};

} // namespace

Keeping KeepingOf(const ParameterDescription& parameter, QString* reason) {
    if (reason)
        reason->clear();
    const auto refuse = [reason](Keeping keeping, const char* why) {
        if (reason)
            *reason = QLatin1String(why);
        return keeping;
    };
    if (parameter.readOnly) {
        const bool tells = parameter.reg >= kFirstIdentity && parameter.reg <= kLastIdentity;
        return tells ? refuse(Keeping::Shown, "it says which drive this is")
                     : refuse(Keeping::Left, "the drive only shows it");
    }
    const auto* const found = std::ranges::find_if(kExceptions, [&parameter](const Exception& exception) {
        return parameter.reg >= exception.first && parameter.reg <= exception.last;
    });
    return found == std::end(kExceptions) ? Keeping::Restored : refuse(found->keeping, found->reason);
}

std::vector<ParameterDescription> BackedUp(const std::vector<ParameterDescription>& parameters) {
    std::vector<ParameterDescription> kept;
    std::ranges::copy_if(parameters, std::back_inserter(kept),
                         [](const ParameterDescription& parameter) { return KeepingOf(parameter) != Keeping::Left; });
    std::ranges::sort(kept, {}, &ParameterDescription::reg);
    return kept;
}

int RestoreStage(quint16 reg) {
    const auto* const found =
        std::ranges::find_if(kStages, [reg](const Stage& stage) { return reg >= stage.first && reg <= stage.last; });
    return found == std::end(kStages) ? kUsualStage : found->stage;
}

} // namespace krt550
