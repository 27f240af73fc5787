#pragma once

#include "drive/terminals.h"

#include <QString>

#include <vector>

namespace krt550 {

/// What one line of a play does.
enum class Verb {
    Start,
    Tick,
    Untick,
    Press,
    Set,
    Choose,
    Menu,
    Key,
    Answer,
    Tab,
    Wait,
    Expect,
    Shot,
    Drive,
    Partner,
    Plc,
    Terminal,
    Fault,
    Show,
    Compare,
    Measure,
    Say,
    ClearLog,
    Close
};

/// What a line expects or waits for.
enum class ConditionKind {
    Title,
    Page,
    Value,
    Text,
    Box,
    Window,
    Enabled,
    Disabled,
    Visible,
    Hidden,
    Ticked,
    Unticked,
    Focus,
    Progress,
    Drive,
    Partner,
    Plc,
    Terminal,
    Log,
    Calls,
    Idle,
    Closed,
    Seconds
};

/// A person's answer to a message box.
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// The arguments of a verb or a condition, read and checked.
struct Arguments {
    int number = 0;          ///< control id, register, page index, layout, count or per cent
    int percent = 0;         ///< of the verb Compare, or how far an expected number may be away; 0: not at all
    bool byRegister = false; ///< `number` is the register of a parameter row
    double seconds = 0;
    Terminal terminal;
    double value = 0; ///< at the terminal: 1 or 0, or volts; or the word of a PLC
    BoxAnswer answer = BoxAnswer::Ok;
    QString text;
    bool hasText = false;
};

struct Condition {
    ConditionKind kind = ConditionKind::Idle;
    bool negated = false;
    Arguments arguments;
};

/// One line of a play.
struct PlayAction {
    int line = 0;
    QString source; ///< the line as it stands in the file
    Verb verb = Verb::Wait;
    Arguments arguments;
    Condition condition;       ///< of Wait and Expect
    double withinSeconds = 60; ///< how long a Wait, or an Answer, stays patient
};

struct PlayScript {
    QString name; ///< file name without directories
    std::vector<PlayAction> actions;
};

} // namespace krt550
