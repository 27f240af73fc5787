#include "host/play/vocabulary.h"

namespace krt550 {
namespace {

using Kind = ArgumentKind;

constexpr VerbDef kVerbs[] = {
    {"start", Verb::Start, {}, "start", "press Start on the start page"},
    {"tick",
     Verb::Tick,
     {Kind::PageIndex, Kind::None},
     "tick N",
     "choose page N on the start page, in the advanced view if need be"},
    {"untick", Verb::Untick, {Kind::PageIndex, Kind::None}, "untick N", "take that choice back"},
    {"press",
     Verb::Press,
     {Kind::Control, Kind::None},
     "press CONTROL",
     "next, back, apply, cancel, help, reset, start, or a control id"},
    {"set",
     Verb::Set,
     {Kind::Target, Kind::Text},
     "set REG TEXT",
     "type a text into that parameter's row and leave the field"},
    {"choose", Verb::Choose, {Kind::Target, Kind::Text}, "choose REG TEXT", "pick an entry of that row's list"},
    {"menu", Verb::Menu, {Kind::Target, Kind::Text}, "menu REG TEXT", "right click there, then that entry"},
    {"key",
     Verb::Key,
     {Kind::Control, Kind::KeyName},
     "key CONTROL KEY",
     "press a key in a control: Enter, Esc, Down, Ctrl+A ..."},
    {"answer", Verb::Answer, {Kind::Answer, Kind::None}, "answer ok|cancel|yes|no", "answer the next message box"},
    {"tab", Verb::Tab, {Kind::Text, Kind::None}, "tab TEXT", "bring a tab to the front"},
    {"wait", Verb::Wait, {}, "wait CONDITION [within SECONDS]", "go on once it holds (60 s); wait SECONDS just waits"},
    {"expect", Verb::Expect, {}, "expect CONDITION", "it holds now"},
    {"shot", Verb::Shot, {Kind::Text, Kind::None}, "shot FILE.png", "save a picture of the window in front"},
    {"drive",
     Verb::Drive,
     {Kind::Register, Kind::Text},
     "drive REG TEXT",
     "change a parameter behind the wizard's back"},
    {"partner",
     Verb::Partner,
     {Kind::Register, Kind::Text},
     "partner REG TEXT",
     "the same in the drive at the other end of the drive-to-drive link"},
    {"plc",
     Verb::Plc,
     {Kind::PlcWord, Kind::Word},
     "plc N WORD",
     "word N (1 to 12) that the PLC sends, to what 90.N points at; 20000 is the speed in 2.29"},
    {"terminal",
     Verb::Terminal,
     {Kind::Terminal, Kind::None},
     "terminal DI3 on|off, AI1 VOLTS",
     "switch a digital input, put a voltage or, as 12 mA, a current on an analogue one"},
    {"fault", Verb::Fault, {Kind::Text, Kind::None}, "fault NAME", "switch a fault of the simulated drive on"},
    {"show", Verb::Show, {Kind::Register, Kind::None}, "show REG", "print a parameter of the drive"},
    {"compare",
     Verb::Compare,
     {Kind::Register, Kind::Tolerance},
     "compare REG PERCENT",
     "print it beside what the motor really has, no farther away than that"},
    {"measure",
     Verb::Measure,
     {Kind::Register, Kind::None},
     "measure REG",
     "type what is measured at the motor into that row, as its speed into 5012"},
    {"say", Verb::Say, {Kind::Text, Kind::None}, "say TEXT", "nothing but be printed, as every line is"},
    {"clear",
     Verb::ClearLog,
     {Kind::Text, Kind::None},
     "clear log",
     "log and calls look at the drive calls from here on"},
    {"close",
     Verb::Close,
     {Kind::OptionalText, Kind::None},
     "close [window TITLE]",
     "close the window in front, or that one"},
};

constexpr ConditionDef kConditions[] = {
    {"title", ConditionKind::Title, {Kind::Text, Kind::None}, "title TEXT", "caption of the window in front"},
    {"page", ConditionKind::Page, {Kind::Number, Kind::None}, "page N", "layout N is on screen"},
    {"value", ConditionKind::Value, {Kind::Target, Kind::Text}, "value REG TEXT", "what that parameter's row shows"},
    {"text", ConditionKind::Text, {Kind::Control, Kind::Text}, "text CONTROL TEXT", "what a control shows"},
    {"box", ConditionKind::Box, {Kind::OptionalText, Kind::None}, "box [TEXT]", "a message box is in front", true},
    {"window", ConditionKind::Window, {Kind::Text, Kind::None}, "window TITLE", "a window is open", true},
    {"enabled", ConditionKind::Enabled, {Kind::Control, Kind::None}, "enabled CONTROL", "the control can be used"},
    {"disabled",
     ConditionKind::Disabled,
     {Kind::Control, Kind::None},
     "disabled CONTROL",
     "it is on screen, but cannot be used"},
    {"visible", ConditionKind::Visible, {Kind::Control, Kind::None}, "visible CONTROL", "it is on screen"},
    {"hidden", ConditionKind::Hidden, {Kind::Control, Kind::None}, "hidden CONTROL", "it is not on screen"},
    {"ticked", ConditionKind::Ticked, {Kind::Control, Kind::None}, "ticked CONTROL", "it has a tick"},
    {"unticked", ConditionKind::Unticked, {Kind::Control, Kind::None}, "unticked CONTROL", "it has none"},
    {"focus", ConditionKind::Focus, {Kind::Control, Kind::None}, "focus CONTROL", "the keyboard is there"},
    {"progress", ConditionKind::Progress, {Kind::Percent, Kind::None}, "progress N", "a progress bar has come to N"},
    {"drive",
     ConditionKind::Drive,
     {Kind::Register, Kind::Text},
     "drive REG TEXT [within N %]",
     "what the drive itself holds, a number perhaps no farther away than that"},
    {"partner",
     ConditionKind::Partner,
     {Kind::Register, Kind::Text},
     "partner REG TEXT [within N %]",
     "the same of the drive at the other end of the drive-to-drive link"},
    {"plc",
     ConditionKind::Plc,
     {Kind::PlcWord, Kind::Word},
     "plc N WORD [within N %]",
     "word N (1 to 12) that the PLC has got, of what 92.N points at"},
    {"terminal",
     ConditionKind::Terminal,
     {Kind::Terminal, Kind::None},
     "terminal DO1 on|off, AO1 VOLTS [within N %]",
     "what lies at a terminal of the drive, inputs included"},
    {"log",
     ConditionKind::Log,
     {Kind::Text, Kind::None},
     "log TEXT",
     "a drive call with these words, as \"WriteWord 9902\"",
     true},
    {"calls", ConditionKind::Calls, {Kind::Number, Kind::Text}, "calls N TEXT", "exactly N such calls"},
    {"idle", ConditionKind::Idle, {}, "idle", "what was pressed has done its work (wait only)", false, true},
    {"closed", ConditionKind::Closed, {}, "closed", "the wizard has returned"},
};

struct ControlName {
    const char* name;
    int id;
};

constexpr ControlName kControlNames[] = {{"next", 95}, {"back", 96},  {"apply", 98},  {"cancel", 91},
                                         {"help", 93}, {"reset", 99}, {"start", 158}, {"view", 170}};

template <class Def> QString UsageLine(const Def& def, qsizetype width) {
    QString usage = QLatin1String(def.usage);
    if constexpr (std::is_same_v<Def, ConditionDef>)
        usage.prepend(def.negatable ? QLatin1String("[no] ") : QLatin1String());
    const QString line = QLatin1String("  ") + usage.leftJustified(width) + QLatin1Char(' ') + QLatin1String(def.help);
    return line.trimmed().prepend(QLatin1String("  ")) + QLatin1Char('\n');
}

} // namespace

const VerbDef* FindVerb(QStringView word) {
    for (const VerbDef& verb : kVerbs)
        if (word == QLatin1String(verb.word))
            return &verb;
    return nullptr;
}

const ConditionDef* FindCondition(QStringView word) {
    for (const ConditionDef& condition : kConditions)
        if (word == QLatin1String(condition.word))
            return &condition;
    return nullptr;
}

int ControlOfName(QStringView name) {
    for (const ControlName& control : kControlNames)
        if (name == QLatin1String(control.name))
            return control.id;
    return 0;
}

QString PlayHelpText() {
    QString text = QStringLiteral(
        "A play is a text file with one action a line; # starts a comment, \"...\" holds a text together.\n"
        "REG is a register as in 9902, or id:N for a control that shows no parameter. In an expected\n"
        "text * stands for anything, and blanks and line ends count as one blank.\n\nActions:\n");
    for (const VerbDef& verb : kVerbs)
        text += UsageLine(verb, 32);
    text += QStringLiteral("\nConditions:\n");
    for (const ConditionDef& condition : kConditions)
        text += UsageLine(condition, 32);
    return text;
}

} // namespace krt550
