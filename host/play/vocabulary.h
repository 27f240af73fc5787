#pragma once

#include "host/play/action.h"

#include <QStringView>

#include <utility>

namespace krt550 {

/// Kinds of arguments; Text takes all that is left of the line.
enum class ArgumentKind {
    None,
    Control,
    Target,
    Register,
    PageIndex,
    Number,
    Percent,
    Tolerance,
    Seconds,
    PlcWord,  ///< number of a word on the fieldbus
    Word,     ///< decimal or 0x..., signed or unsigned
    Terminal, ///< with its value, all that is left of the line
    Answer,
    KeyName,
    Text,
    OptionalText
};

struct VerbDef {
    const char* word;
    Verb verb;
    std::pair<ArgumentKind, ArgumentKind> arguments;
    const char* usage;
    const char* help;
};

struct ConditionDef {
    const char* word;
    ConditionKind kind;
    std::pair<ArgumentKind, ArgumentKind> arguments;
    const char* usage;
    const char* help;
    bool negatable = false; ///< "no" may stand before it
    bool waitOnly = false;
};

const VerbDef* FindVerb(QStringView word);
const ConditionDef* FindCondition(QStringView word);

/// Control id of a name such as "next", or 0.
int ControlOfName(QStringView name);

/// The vocabulary as --help prints it.
QString PlayHelpText();

} // namespace krt550
